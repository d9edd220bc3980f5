#include <designer/DesignerWidgets.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace designer {

namespace {

template <class Widget>
QWidget *make(QWidget *parent)
{
    return new Widget(parent);
}

/** A ruler as it looks beside a view: Designer knows no view to keep it in step with. */
template <class Ruler>
QWidget *makeRuler(QWidget *parent)
{
    constexpr double kPixelsPerMm = 4.0;
    constexpr double kShownMm = 200.0;
    auto *ruler = new Ruler(parent);
    ruler->setPixelsPerUnit(kPixelsPerMm);
    ruler->setLength(kShownMm);
    return ruler;
}

} // namespace

const std::vector<WidgetEntry> &widgetEntries()
{
    static const std::vector<WidgetEntry> kEntries{
        {"ZTGraphicsDocument", "document", 480, 320,
         QStringLiteral("Drawing surface for laser marking"),
         QStringLiteral("Shapes in millimetres, edited with undo. Register the factories of the "
                        "kinds before the form is made; itemMag() hands out the mark data."),
         &make<ZTGraphicsDocument>},
        {"ZTObjectTreeWidget", "objectTree", 200, 240,
         QStringLiteral("Tree of the shapes of a drawing"),
         QStringLiteral("Give it to the drawing surface with setObjectTree()."),
         &make<ZTObjectTreeWidget>},
        {"ZTItemPropertyList", "propertyList", 240, 320,
         QStringLiteral("Property grid of any object"),
         QStringLiteral("Shows and edits every property of the object given by setObject(); each "
                        "edit is a step on the stack given by setUndoStack()."),
         &make<ZTItemPropertyList>},
        {"ZTHorizontalAxis", "horizontalRuler", 480, 24,
         QStringLiteral("Ruler in millimetres, above a drawing surface"),
         QStringLiteral("Kept in step with a view by setPixelsPerUnit(), setOrigin() and "
                        "setLength(), or by hostkit::ViewRulers."),
         &makeRuler<ZTHorizontalAxis>},
        {"ZTVerticalAxis", "verticalRuler", 24, 320,
         QStringLiteral("Ruler in millimetres, beside a drawing surface"),
         QStringLiteral("Kept in step with a view by setPixelsPerUnit(), setOrigin() and "
                        "setLength(), or by hostkit::ViewRulers."),
         &makeRuler<ZTVerticalAxis>}};
    return kEntries;
}

} // namespace designer
