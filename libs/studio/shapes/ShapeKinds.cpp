#include <studio/shapes/ShapeKinds.h>

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace studio {

namespace {

constexpr const char *kNames = "studio::ShapeKinds";

// clang-format off
const QVector<ShapeKind> kTable = {
    {ShapeType::Rect, QT_TRANSLATE_NOOP("studio::ShapeKinds", "Rectangle"),
     QT_TRANSLATE_NOOP("studio::UndoTexts", "Create rectangle"), "create.rectangle",
     QT_TRANSLATE_NOOP("studio", "&Rectangle"), QT_TRANSLATE_NOOP("studio", "Create a rectangle"),
     "rectangle", "R", "tool.rectangle"},
    {ShapeType::Ellipse, QT_TRANSLATE_NOOP("studio::ShapeKinds", "Ellipse"),
     QT_TRANSLATE_NOOP("studio::UndoTexts", "Create ellipse"), "create.ellipse",
     QT_TRANSLATE_NOOP("studio", "&Ellipse"), QT_TRANSLATE_NOOP("studio", "Create an ellipse"),
     "ellipse", "E", "tool.ellipse"},
    {ShapeType::Polygon, QT_TRANSLATE_NOOP("studio::ShapeKinds", "Polygon"),
     QT_TRANSLATE_NOOP("studio::UndoTexts", "Create polygon"), "create.polygon",
     QT_TRANSLATE_NOOP("studio", "&Polygon"),
     QT_TRANSLATE_NOOP("studio", "Create a regular polygon"), "polygon", "P", "tool.polygon"},
    {ShapeType::Line, QT_TRANSLATE_NOOP("studio::ShapeKinds", "Line"),
     QT_TRANSLATE_NOOP("studio::UndoTexts", "Create line"), "create.line",
     QT_TRANSLATE_NOOP("studio", "&Line"), QT_TRANSLATE_NOOP("studio", "Create a line"), "line",
     "L", "tool.line"},
    {ShapeType::TDOT, QT_TRANSLATE_NOOP("studio::ShapeKinds", "TDOT figure"),
     QT_TRANSLATE_NOOP("studio::UndoTexts", "Create TDOT figure"), "create.tdot",
     QT_TRANSLATE_NOOP("studio", "&TDOT figure"),
     QT_TRANSLATE_NOOP("studio", "Create a TDOT figure"), "tdot", "D", "tool.tdot"},
    {ShapeType::Text, QT_TRANSLATE_NOOP("studio::ShapeKinds", "Text"),
     QT_TRANSLATE_NOOP("studio::UndoTexts", "Create text"), "create.text",
     QT_TRANSLATE_NOOP("studio", "Te&xt"),
     QT_TRANSLATE_NOOP("studio", "Create a text and type into it"), "text", "T", "tool.text"},
    {ShapeType::QRCode, QT_TRANSLATE_NOOP("studio::ShapeKinds", "Code"),
     QT_TRANSLATE_NOOP("studio::UndoTexts", "Create code"), "create.code",
     QT_TRANSLATE_NOOP("studio", "&Code"),
     QT_TRANSLATE_NOOP("studio", "Create a Data Matrix, QR or other code"), "code", "C",
     "tool.code"},
    {ShapeType::BarCode, QT_TRANSLATE_NOOP("studio::ShapeKinds", "Bar code"),
     QT_TRANSLATE_NOOP("studio::UndoTexts", "Create bar code"), "create.barcode",
     QT_TRANSLATE_NOOP("studio", "&Bar code"), QT_TRANSLATE_NOOP("studio", "Create a bar code"),
     "barcode", "B", "tool.barcode"},
    {ShapeType::VecGraph, QT_TRANSLATE_NOOP("studio::ShapeKinds", "Path"),
     QT_TRANSLATE_NOOP("studio::UndoTexts", "Create shape"), "", "", "", "", ""},
};
// clang-format on

const ShapeKind kUnknown = {ShapeType::None,
                            QT_TRANSLATE_NOOP("studio::ShapeKinds", "Shape"),
                            QT_TRANSLATE_NOOP("studio::UndoTexts", "Create shape"),
                            "",
                            "",
                            "",
                            "",
                            ""};

} // namespace

const QVector<ShapeKind> &shapeKinds() { return kTable; }

const ShapeKind &shapeKind(ShapeType type)
{
    const auto found = std::find_if(kTable.begin(), kTable.end(),
                                    [type](const ShapeKind &kind) { return kind.type == type; });
    return found != kTable.end() ? *found : kUnknown;
}

QString kindName(ShapeType type)
{
    return QCoreApplication::translate(kNames, shapeKind(type).name);
}

} // namespace studio
