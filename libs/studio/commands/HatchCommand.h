#pragma once

#include <studio/shapes/ShapeItems.h>

#include <hostkit/items/ItemExtras.h>

#include <QtWidgets/QUndoCommand>

#include <functional>

namespace studio {

/**
 * A change of the hatches of shapes, in the fill parameters and beyond. Undo gives each shape the
 * hatches it had; what else its extras hold is left alone.
 *
 * A shape that others delete is passed over.
 */
class HatchCommand : public QUndoCommand
{
public:
    using Change = std::function<void(ZTFillParam &fill)>;
    using FullChange = std::function<void(ZTFillParam &fill, hostkit::ItemExtras &extras)>;

    /** `change` is applied to the settings of each item, now and never again. */
    HatchCommand(ZTGraphicsScene *scene, const ShapeItems &items, const Change &change,
                 const QString &text);

    /** The same with the hatches and the outline union of the extras. */
    HatchCommand(ZTGraphicsScene *scene, const ShapeItems &items, const FullChange &change,
                 const QString &text);

    void undo() override;
    void redo() override;

    /** Whether the command would change nothing: there is no need to push it. */
    bool changesNothing() const;

private:
    struct Settings
    {
        ZTFillParam fill;
        QVector<hostkit::ShapeHatch> hatches;
        hostkit::OutlineUnion outlineUnion = hostkit::OutlineUnion::OfTexts;
    };
    static bool areSame(const Settings &a, const Settings &b);
    static void giveTo(ShapeItem &item, const Settings &settings);

    struct Step
    {
        QPointer<ShapeItem> item;
        Settings before;
        Settings after;
    };

    void give(Settings Step::*side);

    QPointer<ZTGraphicsScene> m_drawing; ///< borrowed from the document
    QVector<Step> m_steps;
};

} // namespace studio
