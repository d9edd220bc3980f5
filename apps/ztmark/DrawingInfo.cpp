#include "DrawingInfo.h"

#include "Console.h"
#include "InfoRows.h"

#include <hostkit/items/ItemHatches.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/text/UnicodeStrokes.h>

#include <algorithm>
#include <map>

using inforows::printRow;
using inforows::rounded;

namespace {

/** A text that came with a file, fit to be shown on a line. */
QString shown(const QString &text)
{
    return QString::fromStdString(console::printable(text.toStdString()));
}

void printEntry(const QString &entry) { console::print(QStringLiteral("  ") + entry); }

QString nameOf(ShapeType kind)
{
    switch (kind) {
    case ShapeType::Rect:
        return DrawingInfo::tr("rectangles: %1");
    case ShapeType::Ellipse:
        return DrawingInfo::tr("ellipses: %1");
    case ShapeType::Polygon:
        return DrawingInfo::tr("polygons: %1");
    case ShapeType::Line:
        return DrawingInfo::tr("lines: %1");
    case ShapeType::TDOT:
        return DrawingInfo::tr("TDOT figures: %1");
    case ShapeType::Text:
        return DrawingInfo::tr("texts: %1");
    case ShapeType::VecGraph:
        return DrawingInfo::tr("paths: %1");
    case ShapeType::QRCode:
        return DrawingInfo::tr("codes: %1");
    case ShapeType::BarCode:
        return DrawingInfo::tr("bar codes: %1");
    default:
        return DrawingInfo::tr("others: %1");
    }
}

QString nameOf(hostkit::HatchKind kind)
{
    switch (kind) {
    case hostkit::HatchKind::Lines:
        return DrawingInfo::tr("single lines");
    case hostkit::HatchKind::Zigzag:
        return DrawingInfo::tr("zigzag");
    case hostkit::HatchKind::Cross:
        return DrawingInfo::tr("crossed lines");
    case hostkit::HatchKind::Turned:
        return DrawingInfo::tr("lines turned each pass");
    case hostkit::HatchKind::Contours:
        break;
    }
    return DrawingInfo::tr("contours");
}

/** A hatch in words; what is as always is left out. */
QString wordsFor(const hostkit::ShapeHatch &hatch, int shapePen)
{
    QStringList words{nameOf(hatch.kind), DrawingInfo::tr("%1 mm").arg(rounded(hatch.spacingMm))};
    if (hatch.kind != hostkit::HatchKind::Contours)
        words << DrawingInfo::tr("%1 degrees").arg(rounded(hatch.angleDeg));
    if (hatch.kind == hostkit::HatchKind::Turned)
        words << DrawingInfo::tr("turned by %1 degrees").arg(rounded(hatch.turnDeg));
    if (hatch.insetMm > 0.0)
        words << DrawingInfo::tr("inset %1 mm").arg(rounded(hatch.insetMm));
    words << DrawingInfo::tr("pen %1").arg(hatch.pen > 0 ? hatch.pen : shapePen);
    if (hatch.passes > 1)
        words << DrawingInfo::tr("passes: %1").arg(hatch.passes);
    if (hatch.isOneWay)
        words << DrawingInfo::tr("one way");
    if (hatch.moment == hostkit::HatchMoment::BeforeOutline)
        words << DrawingInfo::tr("before the outlines");
    if (hatch.moment == hostkit::HatchMoment::AfterOutline)
        words << DrawingInfo::tr("after the outlines");
    return words.join(QStringLiteral(", "));
}

QString nameOf(EShapeSortType order)
{
    switch (order) {
    case EShapeSortType::ShapeSortNearest:
        return QStringLiteral("nearest");
    case EShapeSortType::ShapeSortXFromMin:
        return QStringLiteral("x-min");
    case EShapeSortType::ShapeSortXFromMax:
        return QStringLiteral("x-max");
    case EShapeSortType::ShapeSortYFromMin:
        return QStringLiteral("y-min");
    case EShapeSortType::ShapeSortYFromMax:
        return QStringLiteral("y-max");
    default:
        return QStringLiteral("none");
    }
}

/** The name of drawings that are kept without a file. */
bool isNoFile(const QString &path)
{
    return path.compare(QLatin1String(".plt"), Qt::CaseInsensitive) == 0;
}

/** The fonts that texts are drawn in, and whether each is a stroke font. */
std::map<QString, bool> fontsOf(const QVector<ZTAbstractGraphicsItem *> &items)
{
    std::map<QString, bool> fonts;
    for (const ZTAbstractGraphicsItem *item : items) {
        const auto *text = dynamic_cast<const ZTShapeText *>(item->getShapeBase());
        if (text == nullptr)
            continue;
        const ZTFontParam font = text->getFont();
        if (font.fontType == FontType::doubleLine)
            fonts[font.font.family()] = false;
        if (font.fontType != FontType::singleLine)
            continue;
        for (const QString &name : {font.shxFont.enName, font.shxFont.zhName}) {
            if (!name.isEmpty())
                fonts[name] = true;
        }
        if (hostkit::needsUnicodeFont(hostkit::composedText(text->text()), font.shxFont))
            fonts[hostkit::unicodeStrokeFont()] = true;
    }
    return fonts;
}

} // namespace

DrawingInfo::DrawingInfo(const OpenedDrawing &described)
    : m_drawing(described), m_items(described.items())
{
}

void DrawingInfo::print() const
{
    printFile();
    printField();
    printShapes();
    printHatches();
    printImports();
    printFonts();
    printVariantTexts();
    printFindings();
    printPreview();
}

void DrawingInfo::printFile() const
{
    const hostkit::DrawingMeta &meta = m_drawing.file.meta;
    printRow(tr("Format:"), tr("drawing, version %1").arg(m_drawing.file.version));
    printRow(tr("Saved by:"), shown(meta.programVersion));
    printRow(tr("Saved at:"),
             meta.savedAt.toUTC().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss 'UTC'")));
    if (m_drawing.file.isBare)
        printRow(tr("Kind:"), tr("bare stream, without what imported drawings hold"));
    if (!m_drawing.file.extras.sections.isEmpty())
        printRow(tr("Unknown sections:"), QString::number(m_drawing.file.extras.sections.size()));
}

void DrawingInfo::printField() const
{
    const hostkit::DrawingSetup &setup = m_drawing.file.meta.setup;
    printRow(tr("Reference screen:"),
             tr("%1 x %2 px, %3 x %4 mm, ratio %5")
                 .arg(rounded(setup.width), rounded(setup.height), rounded(setup.physicalWidth),
                      rounded(setup.physicalHeight), rounded(setup.displayRatio)));
    printRow(tr("Marking distance:"), rounded(setup.distance));
    printRow(tr("Mark scale:"),
             tr("%1 x %2").arg(rounded(setup.markScaleX), rounded(setup.markScaleY)));
    const QRect area = setup.workAreaMm;
    printRow(tr("Work area:"), tr("%1 x %2 mm from (%3, %4)")
                                   .arg(area.width())
                                   .arg(area.height())
                                   .arg(area.x())
                                   .arg(area.y()));
    if (setup.curveToleranceMm > 0.0)
        printRow(tr("Curve tolerance:"), tr("%1 mm").arg(rounded(setup.curveToleranceMm)));
    printRow(tr("Order:"), nameOf(setup.sortKind));
}

void DrawingInfo::printShapes() const
{
    std::map<ShapeType, int> counts;
    for (const ZTAbstractGraphicsItem *item : m_items)
        ++counts[item->getShapeType()];
    printRow(tr("Shapes:"), QString::number(m_items.size()));
    for (const auto &[kind, count] : counts)
        printEntry(nameOf(kind).arg(count));
    printRow(tr("Pens:"), QString::number(m_drawing.file.meta.pens.size()));
    for (const hostkit::DrawingPen &pen : m_drawing.file.meta.pens)
        printEntry(tr("pen %1, shapes: %2").arg(pen.id).arg(pen.items));
}

/** Each sort of hatch once, with the number of shapes that have it. */
void DrawingInfo::printHatches() const
{
    std::map<QString, int> counts;
    int hatches = 0;
    for (const ZTAbstractGraphicsItem *item : m_items) {
        QStringList told;
        for (const hostkit::ShapeHatch &hatch : hostkit::hatchesOf(*item))
            told << wordsFor(hatch, item->getPenId());
        hatches += told.size();
        told.removeDuplicates();
        for (const QString &words : qAsConst(told))
            ++counts[words];
    }
    printRow(tr("Hatches:"), QString::number(hatches));
    for (const auto &[words, count] : counts)
        printEntry(tr("%1, shapes: %2").arg(words).arg(count));
}

void DrawingInfo::printImports() const
{
    std::map<QString, int> counts;
    for (const ZTAbstractGraphicsItem *item : m_items) {
        const auto *graphic = dynamic_cast<const ZTVecGraph *>(item->getShapeBase());
        if (graphic != nullptr && !isNoFile(graphic->getImagePath()))
            ++counts[graphic->getImagePath()];
    }
    printRow(tr("Imported files:"), QString::number(counts.size()));
    for (const auto &[path, count] : counts)
        printEntry(tr("%1, shapes: %2").arg(shown(path)).arg(count));
}

void DrawingInfo::printFonts() const
{
    const std::map<QString, bool> fonts = fontsOf(m_items);
    printRow(tr("Fonts:"), QString::number(fonts.size()));
    for (const auto &[name, isStroke] : fonts) {
        const bool isMissing = m_drawing.report.missingFonts.contains(name);
        QString state = isStroke ? tr("stroke font") : tr("system font");
        if (isMissing)
            state = isStroke ? tr("stroke font, missing") : tr("system font, missing");
        printEntry(tr("%1: %2").arg(shown(name), state));
    }
}

void DrawingInfo::printVariantTexts() const
{
    QStringList texts;
    for (const ZTAbstractGraphicsItem *item : m_items) {
        const auto *text = dynamic_cast<const ZTTextShapeBase *>(item->getShapeBase());
        if (text != nullptr && text->isEnableVariantText() && text->getVarTxt() != nullptr)
            texts << text->getVarTxt()->getText();
    }
    printRow(tr("Variant texts:"), QString::number(texts.size()));
    for (const QString &text : texts)
        printEntry(QStringLiteral("\"%1\"").arg(shown(text)));
}

void DrawingInfo::printFindings() const
{
    const hostkit::MarkFindings findings = hostkit::drawingMarks(m_drawing.document).findings;
    QStringList outside;
    for (const hostkit::ShapeOutside &shape : findings.outside)
        outside << shape.name;
    const auto printShapesOf = [](const QString &what, const QStringList &names) {
        printRow(what, QString::number(names.size()));
        for (const QString &name : names.mid(0, hostkit::kMostShapesNamed))
            printEntry(shown(name));
        if (names.size() > hostkit::kMostShapesNamed)
            printEntry(tr("and %1 more").arg(names.size() - hostkit::kMostShapesNamed));
    };
    printShapesOf(tr("Outside the field:"), outside);
    if (!findings.notReady.isEmpty())
        printShapesOf(tr("Not as asked for:"), findings.notReady);
    printShapesOf(tr("Without length:"), findings.withoutLength);
    printShapesOf(tr("Marked twice:"), findings.doubled);
}

void DrawingInfo::printPreview() const
{
    const QImage preview = hostkit::drawingPreview(m_drawing.file);
    printRow(tr("Preview:"), preview.isNull()
                                 ? tr("none")
                                 : tr("%1 x %2 pixels").arg(preview.width()).arg(preview.height()));
}
