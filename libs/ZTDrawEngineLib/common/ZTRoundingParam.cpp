#include <ZTDrawEngineLib/common/ZTRoundingParam.h>

#include <QtCore/QDataStream>

bool operator==(const ZTRoundingParam &a, const ZTRoundingParam &b)
{
    return a.isEnableRounding == b.isEnableRounding && a.startAngle == b.startAngle &&
           a.spanAngle == b.spanAngle && a.diameter == b.diameter && a.itemRotate == b.itemRotate &&
           a.roundingFlag == b.roundingFlag;
}

bool operator!=(const ZTRoundingParam &a, const ZTRoundingParam &b) { return !(a == b); }

QDataStream &operator<<(QDataStream &stream, const ZTRoundingParam &param)
{
    return stream << param.isEnableRounding << param.startAngle << param.spanAngle << param.diameter
                  << param.itemRotate << param.roundingFlag;
}

QDataStream &operator>>(QDataStream &stream, ZTRoundingParam &param)
{
    return stream >> param.isEnableRounding >> param.startAngle >> param.spanAngle >>
           param.diameter >> param.itemRotate >> param.roundingFlag;
}
