#include <vectorkit/write/SvgWriter.h>

#include <QtCore/QIODevice>
#include <QtCore/QXmlStreamWriter>

#include <algorithm>
#include <cmath>

namespace vectorkit {

namespace {

constexpr double kHairlineMm = 0.1;

QString number(double value)
{
    QString digits = QString::number(value, 'f', 6);
    while (digits.endsWith(QLatin1Char('0')))
        digits.chop(1);
    if (digits.endsWith(QLatin1Char('.')))
        digits.chop(1);
    return digits == QLatin1String("-0") ? QStringLiteral("0") : digits;
}

QString point(const QPointF &at) { return number(at.x()) + QLatin1Char(',') + number(at.y()); }

QString arc(const VectorPath::Piece &piece, double sweepDeg, const QPointF &to)
{
    const QPointF ray = piece.from - piece.control1;
    const QString radius = number(std::hypot(ray.x(), ray.y()));
    // With y down, counter-clockwise is against the sense that SVG counts by.
    return QStringLiteral("A%1,%1 0 %2 %3 %4 ")
        .arg(radius)
        .arg(std::abs(sweepDeg) > 180.0 ? 1 : 0)
        .arg(sweepDeg > 0.0 ? 0 : 1)
        .arg(point(to));
}

/** From one point to the same there are many circles: a long arc is two. */
QString arcs(const VectorPath::Piece &piece)
{
    constexpr double kMostDeg = 270.0;
    if (std::abs(piece.sweepDeg) <= kMostDeg)
        return arc(piece, piece.sweepDeg, piece.to);
    VectorPath half(piece.from);
    half.arcAbout(piece.control1, piece.sweepDeg / 2.0);
    return arc(piece, piece.sweepDeg / 2.0, half.end()) +
           arc(piece, piece.sweepDeg / 2.0, piece.to);
}

QString pathData(const VectorShape &shape)
{
    QString data;
    for (const VectorPath &path : shape.paths) {
        if (path.isEmpty())
            continue;
        data += QLatin1Char('M') + point(path.start()) + QLatin1Char(' ');
        path.forEach([&](const VectorPath::Piece &piece) {
            if (piece.kind == PieceKind::Line)
                data += QLatin1Char('L') + point(piece.to) + QLatin1Char(' ');
            else if (piece.kind == PieceKind::Cubic)
                data += QLatin1Char('C') + point(piece.control1) + QLatin1Char(' ') +
                        point(piece.control2) + QLatin1Char(' ') + point(piece.to) +
                        QLatin1Char(' ');
            else
                data += arcs(piece);
        });
        if (path.isClosed())
            data += QStringLiteral("Z ");
    }
    data.chop(1);
    return data;
}

void writeShape(const VectorShape &shape, QXmlStreamWriter *out)
{
    const QString data = pathData(shape);
    if (data.isEmpty())
        return;
    const QString color = (shape.color.isValid() ? shape.color : QColor(Qt::black)).name();
    out->writeEmptyElement(QStringLiteral("path"));
    out->writeAttribute(QStringLiteral("d"), data);
    out->writeAttribute(QStringLiteral("fill"), shape.isFilled ? color : QStringLiteral("none"));
    if (shape.isFilled && shape.fillRule == Qt::OddEvenFill)
        out->writeAttribute(QStringLiteral("fill-rule"), QStringLiteral("evenodd"));
    if (!shape.isStroked)
        return;
    out->writeAttribute(QStringLiteral("stroke"), color);
    out->writeAttribute(QStringLiteral("stroke-width"),
                        number(shape.strokeWidthMm > 0.0 ? shape.strokeWidthMm : kHairlineMm));
}

/** XML holds no control characters. */
QString printable(const QString &name)
{
    QString kept;
    for (const QChar letter : name) {
        if (letter.isPrint() || letter.isSurrogate())
            kept += letter;
    }
    return kept;
}

/** The page; a drawing without a width or height still needs one. */
QRectF pageOf(const VectorDrawing &drawing)
{
    QRectF page = drawing.boundsMm();
    const double across = std::max(0.0, kHairlineMm - page.width()) / 2.0;
    const double down = std::max(0.0, kHairlineMm - page.height()) / 2.0;
    return page.adjusted(-across, -down, across, down);
}

} // namespace

bool writeSvg(const VectorDrawing &drawing, QIODevice *device)
{
    const QRectF page = pageOf(drawing);
    QXmlStreamWriter out(device);
    out.setAutoFormatting(true);
    out.writeStartDocument();
    out.writeStartElement(QStringLiteral("svg"));
    out.writeDefaultNamespace(QStringLiteral("http://www.w3.org/2000/svg"));
    const QString inkscape = QStringLiteral("http://www.inkscape.org/namespaces/inkscape");
    out.writeNamespace(inkscape, QStringLiteral("inkscape"));
    out.writeAttribute(QStringLiteral("width"), number(page.width()) + QStringLiteral("mm"));
    out.writeAttribute(QStringLiteral("height"), number(page.height()) + QStringLiteral("mm"));
    out.writeAttribute(
        QStringLiteral("viewBox"),
        QStringLiteral("%1 %2 %3 %4")
            .arg(number(page.x()), number(page.y()), number(page.width()), number(page.height())));
    for (const VectorLayer &layer : drawing.layers) {
        out.writeStartElement(QStringLiteral("g"));
        out.writeAttribute(inkscape, QStringLiteral("groupmode"), QStringLiteral("layer"));
        out.writeAttribute(inkscape, QStringLiteral("label"), printable(layer.name));
        for (const VectorShape &shape : layer.shapes)
            writeShape(shape, &out);
        out.writeEndElement();
    }
    out.writeEndDocument();
    return !out.hasError();
}

} // namespace vectorkit
