#include <ZTDrawEngineLib/common/ZTFillParam.h>

#include <QtCore/QDataStream>

bool operator==(const ZTFillParam &a, const ZTFillParam &b)
{
    return a.fillType == b.fillType && a.isEnableBorder == b.isEnableBorder &&
           qFuzzyCompare(a.spac, b.spac) && qFuzzyCompare(a.angle, b.angle);
}

bool operator!=(const ZTFillParam &a, const ZTFillParam &b) { return !(a == b); }

QDataStream &operator<<(QDataStream &stream, const ZTFillParam &param)
{
    return stream << static_cast<qint32>(param.fillType) << param.spac << param.angle
                  << param.isEnableBorder;
}

QDataStream &operator>>(QDataStream &stream, ZTFillParam &param)
{
    qint32 fillType = 0;
    stream >> fillType >> param.spac >> param.angle >> param.isEnableBorder;
    param.fillType = static_cast<FillType>(fillType);
    return stream;
}
