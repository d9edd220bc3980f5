#pragma once

#include <codekit/CodeMarks.h>

#define ZX_USE_UTF8 1
#include <ZXing/ReadBarcode.h>

#include <QtGui/QImage>
#include <QtGui/QPainter>

/**
 * Marks of a code as a picture of `pxPerModule` pixels a module, its quiet zone around it, drawn as
 * a beam of `beamMm` draws them.
 */
inline QImage pictureOf(const codekit::CodeMarks &marks, const codekit::CodeForm &form,
                        double pxPerModule, double beamMm = 0.0)
{
    const double scale = pxPerModule / form.moduleMm;
    const double rim = 2.0 * form.moduleMm;
    const QRectF field = marks.fieldMm.adjusted(-rim, -rim, rim, rim);
    QImage image((field.size() * scale).toSize(), QImage::Format_Grayscale8);
    image.fill(form.isInverse ? Qt::black : Qt::white);
    QPainter painter(&image);
    painter.scale(scale, scale);
    painter.translate(-field.topLeft());
    painter.fillPath(marks.areas, form.isInverse ? Qt::white : Qt::black);
    if (beamMm > 0.0)
        painter.strokePath(marks.areas, QPen(form.isInverse ? Qt::white : Qt::black, beamMm));
    painter.setPen(QPen(Qt::black, form.moduleMm, Qt::SolidLine, Qt::FlatCap));
    for (const QLineF &line : marks.lines)
        painter.drawLine(line);
    painter.setPen(QPen(Qt::black, form.moduleMm * 0.9, Qt::SolidLine, Qt::RoundCap));
    for (const QPointF &point : marks.points)
        painter.drawPoint(point);
    return image;
}

/** What an independent reader finds in a picture: empty when it reads nothing. */
inline QString readBack(const QImage &image, ZXing::BarcodeFormat format)
{
    ZXing::DecodeHints hints;
    hints.setFormats(format).setTryHarder(true).setTryRotate(true).setTryCode39ExtendedMode(false);
    hints.setReturnCodabarStartEnd(true).setEanAddOnSymbol(ZXing::EanAddOnSymbol::Read);
    const ZXing::ImageView view(image.constBits(), image.width(), image.height(),
                                ZXing::ImageFormat::Lum, image.bytesPerLine());
    const ZXing::Result result = ZXing::ReadBarcode(view, hints);
    return result.isValid() ? QString::fromStdString(result.text()) : QString();
}
