#pragma once

#include <codekit/CodeKind.h>

#include <dmtx.h>
#include <zbar.h>

// Behind the others, which cannot bear its macros.
#define ZX_USE_UTF8 1
#include <ZXing/ReadBarcode.h>

#include <QtCore/QByteArray>
#include <QtCore/QPointF>
#include <QtCore/QVector>
#include <QtGui/QImage>

#include <algorithm>
#include <cmath>
#include <memory>

/** A picture of marks as a beam leaves them, drawn pixel by pixel, and seen through a lens. */
class BeamPicture
{
public:
    /** Light, or dark where what is marked is light. Frame: millimetres, its corner at `origin`. */
    BeamPicture(const QRectF &fieldMm, double pxPerMm, bool isInverse)
        : m_origin(fieldMm.topLeft()), m_pxPerMm(kFiner * pxPerMm), m_isInverse(isInverse),
          m_image(kFiner * int(std::ceil(fieldMm.width() * pxPerMm)),
                  kFiner * int(std::ceil(fieldMm.height() * pxPerMm)), QImage::Format_Grayscale8)
    {
        m_image.fill(isInverse ? 20 : 235);
    }

    /** Every pixel whose middle is no further from the line than half a beam. */
    void addLine(QPointF from, QPointF to, double beamMm)
    {
        from = (from - m_origin) * m_pxPerMm;
        to = (to - m_origin) * m_pxPerMm;
        const double reach = beamMm * m_pxPerMm / 2.0;
        const int top = std::max(0, int(std::floor(std::min(from.y(), to.y()) - reach)));
        const int bottom =
            std::min(m_image.height() - 1, int(std::ceil(std::max(from.y(), to.y()) + reach)));
        const int left = std::max(0, int(std::floor(std::min(from.x(), to.x()) - reach)));
        const int right =
            std::min(m_image.width() - 1, int(std::ceil(std::max(from.x(), to.x()) + reach)));
        for (int y = top; y <= bottom; ++y) {
            uchar *row = m_image.scanLine(y);
            for (int x = left; x <= right; ++x) {
                if (distance(QPointF(x + 0.5, y + 0.5), from, to) <= reach)
                    row[x] = m_isInverse ? 235 : 20;
            }
        }
    }

    /** Each pixel the mean of the finer ones that it covers. */
    QImage image() const
    {
        QImage seen(m_image.width() / kFiner, m_image.height() / kFiner, QImage::Format_Grayscale8);
        for (int y = 0; y < seen.height(); ++y) {
            uchar *row = seen.scanLine(y);
            for (int x = 0; x < seen.width(); ++x)
                row[x] = meanAt(x * kFiner, y * kFiner);
        }
        return seen;
    }

private:
    static constexpr int kFiner = 4;

    uchar meanAt(int left, int top) const
    {
        int sum = 0;
        for (int y = top; y < top + kFiner; ++y) {
            const uchar *row = m_image.constScanLine(y);
            for (int x = left; x < left + kFiner; ++x)
                sum += row[x];
        }
        return uchar(sum / (kFiner * kFiner));
    }

    static double distance(const QPointF &point, const QPointF &from, const QPointF &to)
    {
        const QPointF along = to - from;
        const double length2 = QPointF::dotProduct(along, along);
        const double at =
            length2 > 0.0 ? std::clamp(QPointF::dotProduct(point - from, along) / length2, 0.0, 1.0)
                          : 0.0;
        const QPointF off = point - (from + at * along);
        return std::hypot(off.x(), off.y());
    }

    QPointF m_origin;
    double m_pxPerMm;
    bool m_isInverse;
    QImage m_image;
};

/** Two readers that know nothing of each other; each gives the bytes that it found, or none. */
namespace readers {

inline ZXing::BarcodeFormat formatOf(codekit::CodeKind kind)
{
    using Kind = codekit::CodeKind;
    using Format = ZXing::BarcodeFormat;
    switch (kind) {
    case Kind::Qr:
        return Format::QRCode;
    case Kind::MicroQr:
        return Format::MicroQRCode;
    case Kind::DataMatrix:
    case Kind::Gs1DataMatrix:
        return Format::DataMatrix;
    case Kind::Aztec:
        return Format::Aztec;
    case Kind::Pdf417:
        return Format::PDF417;
    case Kind::Code128:
    case Kind::Gs1_128:
        return Format::Code128;
    case Kind::Code39:
    case Kind::Code39Extended:
        return Format::Code39;
    case Kind::Code93:
        return Format::Code93;
    case Kind::Codabar:
        return Format::Codabar;
    case Kind::Interleaved25:
    case Kind::Itf14:
        return Format::ITF;
    case Kind::Ean13:
        return Format::EAN13;
    case Kind::Ean8:
        return Format::EAN8;
    case Kind::UpcA:
        return Format::UPCA;
    case Kind::UpcE:
        return Format::UPCE;
    default:
        return Format::None;
    }
}

/** The symbology of the second reader for bars and QR; none: it has no such symbology. */
inline zbar::zbar_symbol_type_t barTypeOf(codekit::CodeKind kind)
{
    using Kind = codekit::CodeKind;
    switch (kind) {
    case Kind::Qr:
        return zbar::ZBAR_QRCODE;
    case Kind::Code128:
    case Kind::Gs1_128:
        return zbar::ZBAR_CODE128;
    case Kind::Code39:
    case Kind::Code39Extended:
        return zbar::ZBAR_CODE39;
    case Kind::Code93:
        return zbar::ZBAR_CODE93;
    case Kind::Codabar:
        return zbar::ZBAR_CODABAR;
    case Kind::Interleaved25:
    case Kind::Itf14:
        return zbar::ZBAR_I25;
    case Kind::Ean13:
        return zbar::ZBAR_EAN13;
    case Kind::Ean8:
        return zbar::ZBAR_EAN8;
    case Kind::UpcA:
        return zbar::ZBAR_UPCA;
    case Kind::UpcE:
        return zbar::ZBAR_UPCE;
    default:
        return zbar::ZBAR_NONE;
    }
}

inline bool isDataMatrix(codekit::CodeKind kind)
{
    return kind == codekit::CodeKind::DataMatrix || kind == codekit::CodeKind::Gs1DataMatrix;
}

inline bool hasSecond(codekit::CodeKind kind)
{
    return isDataMatrix(kind) || barTypeOf(kind) != zbar::ZBAR_NONE;
}

inline QByteArray first(const QImage &image, codekit::CodeKind kind)
{
    ZXing::DecodeHints hints;
    hints.setFormats(formatOf(kind)).setTryHarder(true).setTryRotate(true);
    hints.setReturnCodabarStartEnd(true).setEanAddOnSymbol(ZXing::EanAddOnSymbol::Read);
    const ZXing::ImageView view(image.constBits(), image.width(), image.height(),
                                ZXing::ImageFormat::Lum, image.bytesPerLine());
    const ZXing::Result result = ZXing::ReadBarcode(view, hints);
    return result.isValid() ? QByteArray::fromStdString(result.text()) : QByteArray();
}

/** Rows without the padding of an image. */
inline QByteArray pixelsOf(const QImage &image)
{
    QByteArray pixels;
    for (int y = 0; y < image.height(); ++y)
        pixels.append(reinterpret_cast<const char *>(image.constScanLine(y)), image.width());
    return pixels;
}

inline QByteArray ofBars(const QImage &image, codekit::CodeKind kind)
{
    zbar::ImageScanner scanner;
    scanner.set_config(zbar::ZBAR_NONE, zbar::ZBAR_CFG_ENABLE, 0);
    scanner.set_config(barTypeOf(kind), zbar::ZBAR_CFG_ENABLE, 1);
    if (kind == codekit::CodeKind::UpcA) // to it an EAN-13 that begins with 0
        scanner.set_config(zbar::ZBAR_EAN13, zbar::ZBAR_CFG_ENABLE, 1);
    const QByteArray pixels = pixelsOf(image);
    zbar::Image scanned(unsigned(image.width()), unsigned(image.height()), "Y800",
                        pixels.constData(), ulong(pixels.size()));
    scanner.scan(scanned);
    const auto found = scanned.symbol_begin();
    return found == scanned.symbol_end() ? QByteArray()
                                         : QByteArray::fromStdString(found->get_data());
}

inline QByteArray ofDataMatrix(const QImage &image)
{
    constexpr int kMostMs = 3000;
    QByteArray pixels = pixelsOf(image);
    DmtxImage *picture = dmtxImageCreate(reinterpret_cast<unsigned char *>(pixels.data()),
                                         image.width(), image.height(), DmtxPack8bppK);
    DmtxDecode *decoder = dmtxDecodeCreate(picture, 1);
    DmtxTime until = dmtxTimeAdd(dmtxTimeNow(), kMostMs);
    QByteArray read;
    while (DmtxRegion *region = dmtxRegionFindNext(decoder, &until)) {
        DmtxMessage *message = dmtxDecodeMatrixRegion(decoder, region, DmtxUndefined);
        dmtxRegionDestroy(&region);
        if (message == nullptr)
            continue;
        read = QByteArray(reinterpret_cast<const char *>(message->output), message->outputIdx);
        dmtxMessageDestroy(&message);
        break;
    }
    dmtxDecodeDestroy(&decoder);
    dmtxImageDestroy(&picture);
    return read;
}

inline QByteArray second(const QImage &image, codekit::CodeKind kind)
{
    return isDataMatrix(kind) ? ofDataMatrix(image) : ofBars(image, kind);
}

} // namespace readers
