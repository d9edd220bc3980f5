#include "PlainPltReader.h"

#include <QtCore/QBuffer>
#include <QtCore/QStringList>
#include <QtGui/QPolygonF>
#include <QtGui/QTransform>

namespace testsupport {

namespace {

QStringList readLines(const QByteArray &bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QStringList lines;
    while (!buffer.atEnd())
        lines << QString::fromUtf8(buffer.readLine());
    return lines;
}

void appendPoint(const QString &line, QPolygonF &polygon)
{
    const int semicolon = line.indexOf(QLatin1Char(';'));
    const QString text = semicolon < 0 ? line.mid(2) : line.mid(2, semicolon - 2);
    const QStringList parts = text.split(QLatin1Char(' '), Qt::KeepEmptyParts);
    if (parts.size() >= 2)
        polygon << QPointF(parts[0].toInt(), parts[1].toInt());
}

QPainterPath parse(const QStringList &lines)
{
    QPainterPath raw;
    QPolygonF polygon;
    for (const QString &line : lines) {
        if (line.size() < 2)
            continue;
        if (line.startsWith(QLatin1String("PU"))) {
            if (!polygon.isEmpty()) {
                raw.addPolygon(polygon);
                polygon = QPolygonF();
            }
            appendPoint(line, polygon);
        } else if (line.startsWith(QLatin1String("PD"))) {
            appendPoint(line, polygon);
        }
    }
    raw.addPolygon(polygon);
    return raw;
}

QPainterPath normalise(const QPainterPath &raw)
{
    const QRectF r = raw.controlPointRect();
    if (r.height() == 0.0)
        return {};
    QTransform t = QTransform::fromTranslate(-r.x(), -r.y() - r.height());
    t *= QTransform::fromScale(20.0 / r.height(), -(20.0 / r.height()));
    QPainterPath path;
    const QList<QPolygonF> polygons = raw.toSubpathPolygons(t);
    for (const QPolygonF &polygon : polygons)
        path.addPolygon(polygon);
    return path;
}

} // namespace

bool PlainPltReader::load(const QByteArray &bytes)
{
    const QStringList lines = readLines(bytes);
    if (lines.isEmpty())
        return false;
    const QPainterPath raw = parse(lines);
    if (raw.isEmpty())
        return false;
    path = normalise(raw);
    return true;
}

} // namespace testsupport
