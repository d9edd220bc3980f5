#include <codekit/CodeReadback.h>

#include <codekit/Code39_p.h>

#include <QtCore/QTextCodec>
#include <QtGui/QPainter>
#include <QtGui/QPolygonF>

#define ZX_USE_UTF8 1
#include <ZXing/ReadBarcode.h>

#include <algorithm>
#include <cmath>

namespace codekit {

namespace {

constexpr int kMostPixels = 4096;

ZXing::BarcodeFormat formatOf(CodeKind kind)
{
    using Format = ZXing::BarcodeFormat;
    switch (kind) {
    case CodeKind::Qr:
        return Format::QRCode;
    case CodeKind::MicroQr:
        return Format::MicroQRCode;
    case CodeKind::DataMatrix:
    case CodeKind::Gs1DataMatrix:
        return Format::DataMatrix;
    case CodeKind::Aztec:
        return Format::Aztec;
    case CodeKind::Pdf417:
        return Format::PDF417;
    case CodeKind::Code128:
    case CodeKind::Gs1_128:
        return Format::Code128;
    case CodeKind::Code39:
    case CodeKind::Code39Extended:
        return Format::Code39;
    case CodeKind::Code93:
        return Format::Code93;
    case CodeKind::Codabar:
        return Format::Codabar;
    case CodeKind::Interleaved25:
    case CodeKind::Itf14:
        return Format::ITF;
    case CodeKind::Ean13:
        return Format::EAN13;
    case CodeKind::Ean8:
        return Format::EAN8;
    case CodeKind::UpcA:
        return Format::UPCA;
    case CodeKind::UpcE:
        return Format::UPCE;
    case CodeKind::RectMicroQr:
    case CodeKind::MicroPdf417:
        break;
    }
    return Format::None;
}

QRectF boundsOf(const QVector<QVector<QPointF>> &lines)
{
    bool isFirst = true;
    QPointF low;
    QPointF high;
    for (const auto &line : lines) {
        for (const QPointF &point : line) {
            low = isFirst ? point
                          : QPointF(std::min(low.x(), point.x()), std::min(low.y(), point.y()));
            high = isFirst ? point
                           : QPointF(std::max(high.x(), point.x()), std::max(high.y(), point.y()));
            isFirst = false;
        }
    }
    return isFirst ? QRectF() : QRectF(low, high);
}

/**
 * Bytes in GB 18030, whose number the reader does not know; null for others. In what it hands out,
 * "\\000032" begins them, and a backslash of the content is doubled.
 */
QString textOfGb18030(const ZXing::Result &result)
{
    constexpr int kBeforeBytes = 3; // "]Q2": which symbology it was
    const ZXing::ByteArray &given = result.bytesECI();
    QByteArray bytes(reinterpret_cast<const char *>(given.data()), int(given.size()));
    const QByteArray number = QByteArrayLiteral("\\000032");
    if (bytes.indexOf(number) != kBeforeBytes)
        return {};
    bytes.remove(0, kBeforeBytes + number.size());
    bytes.replace("\\\\", "\\");
    return QTextCodec::codecForName("GB18030")->toUnicode(bytes);
}

QString textOf(const ZXing::Result &result, CodeKind kind)
{
    const QString text = QString::fromStdString(result.text());
    if (kind == CodeKind::Code39Extended)
        return readFrom39(text); // the reader's own way gives up at some check characters
    const QString chinese = infoOf(kind).hasCharsets ? textOfGb18030(result) : QString();
    return chinese.isNull() ? text : chinese;
}

ReadCode readOnce(const QImage &image, CodeKind kind)
{
    ZXing::DecodeHints hints;
    hints.setFormats(formatOf(kind)).setTryHarder(true).setTryRotate(true);
    hints.setReturnCodabarStartEnd(true).setEanAddOnSymbol(ZXing::EanAddOnSymbol::Read);
    const ZXing::ImageView view(image.constBits(), image.width(), image.height(),
                                ZXing::ImageFormat::Lum, image.bytesPerLine());
    const ZXing::Result result = ZXing::ReadBarcode(view, hints);
    if (!result.isValid())
        return {};
    return {true, textOf(result, kind), result.isMirrored()};
}

/** A line without a length, which a painter leaves out. */
bool isPoint(const QVector<QPointF> &line)
{
    return std::all_of(line.begin(), line.end(),
                       [&line](const QPointF &point) { return point == line.first(); });
}

/** Smooth edges, or pixels that are marked or not. */
QImage draw(const MarkedLines &marks, double pxPerMm, bool isSmooth)
{
    const QRectF bounds = boundsOf(marks.linesMm);
    const double rim = marks.quietMm + marks.beamMm;
    const QRectF field = bounds.adjusted(-rim, -rim, rim, rim);
    const double longer = std::max(field.width(), field.height());
    if (marks.linesMm.isEmpty() || !(longer > 0.0) || !std::isfinite(longer) || !(pxPerMm > 0.0))
        return QImage();
    const double scale = std::min(pxPerMm, kMostPixels / longer);
    QImage image(std::max(1, int(std::ceil(field.width() * scale))),
                 std::max(1, int(std::ceil(field.height() * scale))), QImage::Format_Grayscale8);
    if (image.isNull())
        return image;
    image.fill(marks.isInverse ? Qt::black : Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, isSmooth);
    painter.scale(scale, scale);
    painter.translate(-field.topLeft());
    painter.setPen(QPen(marks.isInverse ? Qt::white : Qt::black, marks.beamMm, Qt::SolidLine,
                        Qt::RoundCap, Qt::RoundJoin));
    for (const auto &line : marks.linesMm) {
        if (line.isEmpty())
            continue;
        if (isPoint(line))
            painter.drawPoint(line.first());
        else
            painter.drawPolyline(line.constData(), line.size());
    }
    return image;
}

/**
 * The same from a picture of many more pixels: smooth edges that lie side by side, as those of a
 * slanted hatch do, leave a grey between them that no beam leaves.
 */
QImage drawFinely(const MarkedLines &marks, double pxPerMm)
{
    constexpr int kFiner = 4;
    QImage fine = draw(marks, pxPerMm * kFiner, false);
    if (fine.isNull())
        return fine;
    return fine
        .scaled(std::max(1, fine.width() / kFiner), std::max(1, fine.height() / kFiner),
                Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_Grayscale8);
}

} // namespace

bool canReadBack(CodeKind kind) { return formatOf(kind) != ZXing::BarcodeFormat::None; }

QImage drawMarks(const MarkedLines &marks, double pxPerMm) { return draw(marks, pxPerMm, true); }

ReadCode readMarks(const MarkedLines &marks, CodeKind kind, double moduleMm,
                   const std::atomic<bool> *isGivenUp)
{
    if (!canReadBack(kind) || !(moduleMm > 0.0))
        return {};
    for (const bool isMirrored : {false, true}) {
        for (const bool isFine : {false, true}) {
            for (const double pxPerModule : {6.0, 4.0, 9.0, 3.0}) {
                if (isGivenUp != nullptr && *isGivenUp)
                    return {};
                const double pxPerMm = pxPerModule / moduleMm;
                const QImage image =
                    isFine ? drawFinely(marks, pxPerMm) : drawMarks(marks, pxPerMm);
                if (image.isNull())
                    return {};
                ReadCode read = readOnce(isMirrored ? image.mirrored(true, false) : image, kind);
                // Some readers turn a picture over by themselves, and say so.
                read.isMirrored = read.isMirrored != isMirrored;
                if (read.isRead)
                    return read;
            }
        }
    }
    return {};
}

bool isSameContent(CodeKind kind, const QString &read, const QString &promised)
{
    if (!infoOf(kind).isGs1)
        return read == promised;
    // Separators between the elements may come as control characters or not at all.
    const auto bare = [](QString text) {
        for (const QChar c : {QLatin1Char('('), QLatin1Char(')'), QLatin1Char('\x1D')})
            text.remove(c);
        return text;
    };
    return bare(read) == bare(promised);
}

} // namespace codekit
