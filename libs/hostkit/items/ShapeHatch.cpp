#include <hostkit/items/ShapeHatch.h>

#include <QtCore/QDataStream>

#include <cmath>
#include <tuple>

namespace hostkit {

namespace {

constexpr quint8 kVersion = 1;
constexpr double kLeastSpacingMm = 0.005;
constexpr double kMostMm = 1000.0;
constexpr double kMostDeg = 360.0;
constexpr qint32 kMostPen = 9999;
constexpr qint32 kMostPasses = 1000;

auto membersOf(const ShapeHatch &h)
{
    return std::tie(h.kind, h.spacingMm, h.angleDeg, h.turnDeg, h.insetMm, h.pen, h.passes,
                    h.isOneWay, h.moment);
}

bool isWithin(double value, double least, double most) { return value >= least && value <= most; }

QDataStream &operator<<(QDataStream &stream, const ShapeHatch &hatch)
{
    return stream << quint8(hatch.kind) << hatch.spacingMm << hatch.angleDeg << hatch.turnDeg
                  << hatch.insetMm << hatch.pen << hatch.passes << quint8(hatch.isOneWay)
                  << quint8(hatch.moment);
}

bool take(QDataStream &stream, ShapeHatch *hatch)
{
    quint8 kind = 0;
    quint8 isOneWay = 0;
    quint8 moment = 0;
    stream >> kind >> hatch->spacingMm >> hatch->angleDeg >> hatch->turnDeg >> hatch->insetMm >>
        hatch->pen >> hatch->passes >> isOneWay >> moment;
    if (stream.status() != QDataStream::Ok || kind > quint8(HatchKind::Contours) || isOneWay > 1 ||
        moment > quint8(HatchMoment::AfterOutline))
        return false;
    hatch->kind = static_cast<HatchKind>(kind);
    hatch->isOneWay = isOneWay == 1;
    hatch->moment = static_cast<HatchMoment>(moment);
    return isInRange(*hatch);
}

} // namespace

bool operator==(const ShapeHatch &a, const ShapeHatch &b) { return membersOf(a) == membersOf(b); }

bool isInRange(const ShapeHatch &hatch)
{
    return isWithin(hatch.spacingMm, kLeastSpacingMm, kMostMm) &&
           isWithin(hatch.angleDeg, -kMostDeg, kMostDeg) &&
           isWithin(hatch.turnDeg, -kMostDeg, kMostDeg) && isWithin(hatch.insetMm, 0.0, kMostMm) &&
           hatch.pen >= 0 && hatch.pen <= kMostPen && hatch.passes >= 1 &&
           hatch.passes <= kMostPasses;
}

bool isPlain(const ShapeHatch &hatch)
{
    const bool isOfLibrary = hatch.kind == HatchKind::Lines || hatch.kind == HatchKind::Zigzag;
    return isOfLibrary && hatch.insetMm == 0.0 && !hatch.isOneWay;
}

QByteArray hatchBytes(const QVector<ShapeHatch> &hatches)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << kVersion << quint8(hatches.size());
    for (const ShapeHatch &hatch : hatches)
        stream << hatch;
    return bytes;
}

bool takeHatches(const QByteArray &bytes, QVector<ShapeHatch> *hatches)
{
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_5_15);
    quint8 version = 0;
    quint8 count = 0;
    stream >> version >> count;
    if (stream.status() != QDataStream::Ok || version != kVersion || count > kMostHatches)
        return false;
    QVector<ShapeHatch> taken(count);
    for (ShapeHatch &hatch : taken) {
        if (!take(stream, &hatch))
            return false;
    }
    if (!stream.atEnd())
        return false;
    *hatches = taken;
    return true;
}

} // namespace hostkit
