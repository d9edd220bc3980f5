#include "Geometry.h"

#include <QtCore/QDebug>

#include <cstring>

namespace {

bool isNear(const QPointF &a, const QPointF &b, double tolerance)
{
    return qAbs(a.x() - b.x()) <= tolerance && qAbs(a.y() - b.y()) <= tolerance;
}

bool isSameBits(const QPolygonF &a, const QPolygonF &b)
{
    return a.size() == b.size() &&
           std::memcmp(a.constData(), b.constData(), sizeof(QPointF) * std::size_t(a.size())) == 0;
}

} // namespace

namespace testsupport {

QPolygonF polygon(std::initializer_list<QPointF> points) { return QVector<QPointF>(points); }

QString toText(const QPolygonF &polygon)
{
    QStringList points;
    for (const QPointF &point : polygon)
        points << QStringLiteral("(%1, %2)")
                      .arg(QString::number(point.x(), 'g', 17),
                           QString::number(point.y(), 'g', 17));
    return points.join(QLatin1Char(' '));
}

QList<QPolygonF> polygonsOf(const QPainterPath &path)
{
    return path.toSubpathPolygons(QTransform());
}

bool near(const QPolygonF &actual, const QPolygonF &expected, double tolerance)
{
    bool equal = actual.size() == expected.size();
    for (int i = 0; equal && i < actual.size(); ++i)
        equal = isNear(actual[i], expected[i], tolerance);
    if (!equal) {
        qInfo().noquote() << "  actual:" << toText(actual);
        qInfo().noquote() << "expected:" << toText(expected);
    }
    return equal;
}

bool same(const QList<QPolygonF> &actual, const QList<QPolygonF> &expected)
{
    if (actual.size() != expected.size()) {
        qInfo() << "actual" << actual.size() << "polygons, expected" << expected.size();
        return false;
    }
    for (int i = 0; i < actual.size(); ++i) {
        if (!isSameBits(actual[i], expected[i])) {
            qInfo().noquote() << "polygon" << i << "\n  actual:" << toText(actual[i])
                              << "\nexpected:" << toText(expected[i]);
            return false;
        }
    }
    return true;
}

} // namespace testsupport
