#include <studio/canvas/Guides.h>

#include <QtCore/QDataStream>

#include <cmath>

namespace studio {

namespace {

const QByteArray kField = QByteArrayLiteral("guides");
constexpr int kGuideBytes = 9;
constexpr quint8 kUpright = 1;
constexpr quint8 kLevel = 2;

} // namespace

QVector<Guide> guidesOf(const hostkit::DrawingExtras &extras)
{
    const QByteArray bytes = extras.fields.value(kField);
    if (bytes.size() % kGuideBytes != 0)
        return {};
    QVector<Guide> guides;
    QDataStream stream(bytes);
    while (!stream.atEnd()) {
        quint8 direction = 0;
        double atMm = 0.0;
        stream >> direction >> atMm;
        if ((direction != kUpright && direction != kLevel) || !std::isfinite(atMm))
            return {};
        guides.append({direction == kUpright ? Qt::Vertical : Qt::Horizontal, atMm});
    }
    return guides;
}

void setGuides(const QVector<Guide> &guides, hostkit::DrawingExtras *extras)
{
    extras->fields.remove(kField);
    if (guides.isEmpty())
        return;
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    for (const Guide &guide : guides)
        stream << (guide.orientation == Qt::Vertical ? kUpright : kLevel) << guide.atMm;
    extras->fields.insert(kField, bytes);
}

} // namespace studio
