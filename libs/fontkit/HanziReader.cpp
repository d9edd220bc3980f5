#include "HanziReader.h"

#include <hostkit/files/JsonKeys.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <cmath>

namespace fontkit {

namespace {

constexpr double kFarthest = 4.0 * HanziReader::kEm; // Limit: far outside any character

bool readCoordinate(const QJsonValue &value, double *coordinate)
{
    *coordinate = value.toDouble();
    return value.isDouble() && std::abs(*coordinate) <= kFarthest;
}

bool readPoint(const QJsonValue &value, QPointF *point)
{
    const QJsonArray pair = value.toArray();
    double x = 0.0;
    double y = 0.0;
    if (pair.size() != 2 || !readCoordinate(pair.at(0), &x) || !readCoordinate(pair.at(1), &y))
        return false;
    *point = QPointF(x, y);
    return true;
}

bool readStroke(const QJsonValue &value, QVector<QPointF> *stroke)
{
    if (!value.isArray())
        return false;
    const QJsonArray points = value.toArray();
    for (const QJsonValue &element : points) {
        QPointF point;
        if (!readPoint(element, &point))
            return false;
        stroke->append(point);
    }
    return true;
}

} // namespace

bool HanziReader::read(const QByteArray &json)
{
    m_medians.clear();
    if (const auto key = hostkit::jsonKeyTwice(json)) {
        m_error = QStringLiteral("\"%1\" stands twice").arg(*key);
        return false;
    }
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(json, &problem);
    if (document.isNull()) {
        m_error = QStringLiteral("no JSON: %1").arg(problem.errorString());
        return false;
    }
    QVector<QVector<QPointF>> strokes;
    int points = 0;
    const QJsonArray all = document.object().value(QLatin1String("medians")).toArray();
    for (const QJsonValue &value : all) {
        QVector<QPointF> stroke;
        if (!readStroke(value, &stroke)) {
            m_error = QStringLiteral("stroke %1 is no list of points").arg(strokes.size() + 1);
            return false;
        }
        points += stroke.size();
        if (points > kMaxPoints) {
            m_error = QStringLiteral("more than %1 points").arg(kMaxPoints);
            return false;
        }
        if (!stroke.isEmpty())
            strokes.append(stroke);
    }
    m_error = strokes.isEmpty() ? QStringLiteral("no strokes") : QString();
    m_medians = strokes;
    return m_error.isEmpty();
}

} // namespace fontkit
