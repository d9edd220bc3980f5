#include <studio/clipboard/ClipboardContent.h>

#include <hostkit/drawing/DrawingCapture.h>
#include <hostkit/import/DrawingImport.h>

#include <vectorkit/VectorDrawing.h>
#include <vectorkit/write/SvgWriter.h>

#include <QtCore/QBuffer>
#include <QtCore/QMimeData>

namespace studio {

const QString kShapesType = QStringLiteral("application/x-ztdrawing");
const QString kSvgType = QStringLiteral("image/svg+xml");

namespace {

constexpr int kLookedAt = 4096; ///< characters in which an SVG drawing says what it is

/** The outline of a shape as it lies on the scene, in millimetres. */
vectorkit::VectorShape outlineOf(const ShapeItem &item)
{
    vectorkit::VectorShape outline;
    const QTransform toMm = item.sceneTransform() * ZTCoord::getInstance()->getPix2MmTransform();
    for (const QPolygonF &run : item.getShapeBase()->getLines().toSubpathPolygons(toMm)) {
        const bool isClosed = run.size() > 2 && run.first() == run.last();
        outline.paths.append(vectorkit::VectorPath::polyline(
            isClosed ? run.mid(0, run.size() - 1) : QVector<QPointF>(run), isClosed));
    }
    outline.pen = item.getPenId();
    outline.color = hostkit::screenPenColor(outline.pen);
    outline.id = hostkit::itemExtras(item).name;
    return outline;
}

QByteArray svgOutlines(const ShapeItems &items)
{
    vectorkit::VectorDrawing drawing;
    drawing.layers.resize(1);
    for (const ShapeItem *item : items) {
        item->getShapeBase()->paint();
        const vectorkit::VectorShape outline = outlineOf(*item);
        if (!outline.paths.isEmpty())
            drawing.layers.first().shapes.append(outline);
    }
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const bool isWritten = !drawing.isEmpty() && vectorkit::writeSvg(drawing, &buffer);
    return isWritten ? buffer.data() : QByteArray();
}

QStringList wordsOfTexts(const ShapeItems &items)
{
    QStringList words;
    for (const ShapeItem *item : items) {
        if (dynamic_cast<const ZTGraphicsTextItem *>(item) != nullptr && !item->text().isEmpty())
            words << item->text();
    }
    return words;
}

bool looksLikeSvg(const QString &text)
{
    const QString start = text.left(kLookedAt).trimmed();
    return start.startsWith(QLatin1Char('<')) && start.contains(QLatin1String("<svg"));
}

} // namespace

std::unique_ptr<QMimeData> shapesForClipboard(ZTGraphicsDocument &document, const ShapeItems &items,
                                              hostkit::Failure *failure)
{
    hostkit::DrawingFile drawing;
    hostkit::DrawingCapture capture;
    capture.programVersion = QStringLiteral(ZT_VERSION);
    capture.withPreview = false;
    if (!hostkit::captureItems(document, items, capture, &drawing, failure))
        return nullptr;
    auto held = std::make_unique<QMimeData>();
    held->setData(kShapesType, hostkit::drawingToBytes(drawing));
    const QByteArray svg = svgOutlines(items);
    if (!svg.isEmpty())
        held->setData(kSvgType, svg);
    const QStringList words = wordsOfTexts(items);
    if (!words.isEmpty())
        held->setText(words.join(QLatin1Char('\n')));
    return held;
}

PasteKind pasteKind(const QMimeData *held)
{
    if (held == nullptr)
        return PasteKind::Nothing;
    if (held->hasFormat(kShapesType))
        return PasteKind::Shapes;
    if (held->hasFormat(kSvgType) || (held->hasText() && looksLikeSvg(held->text())))
        return PasteKind::Svg;
    return held->hasText() && !wordsOf(*held).isEmpty() ? PasteKind::Words : PasteKind::Nothing;
}

QByteArray svgOf(const QMimeData &held)
{
    return held.hasFormat(kSvgType) ? held.data(kSvgType) : held.text().toUtf8();
}

QString wordsOf(const QMimeData &held)
{
    QString words = held.text();
    words.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    words.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    words.replace(QLatin1Char('\t'), QLatin1Char(' '));
    QString clean;
    clean.reserve(words.size());
    for (const QChar letter : qAsConst(words)) {
        if (letter == QLatin1Char('\n') || letter.category() != QChar::Other_Control)
            clean.append(letter);
    }
    while (clean.endsWith(QLatin1Char('\n')))
        clean.chop(1);
    return clean.trimmed().isEmpty() ? QString() : clean;
}

} // namespace studio
