#pragma once

#include <ZTDrawEngineLib/common/ZTEnumerations.h>

QT_BEGIN_NAMESPACE
class QDataStream;
QT_END_NAMESPACE

/** Hatch settings of a shape. A default record means: no hatch, outline painted. */
struct ZTFillParam
{
    FillType fillType = FillType::None; ///< how the lines run; None: no hatch

    /**
     * Distance between hatch lines; 0 means no hatch.
     *
     * Frame: `ZTShapeBase::fill` takes it as millimetres and converts it to scene pixels. The
     * property grid stores pixels here, so what a user types is converted twice.
     * Kept: drawings made with the grid carry spacings of this kind; mending one side would change
     * their hatch.
     */
    double spac = 2.0;

    double angle = 0.0;         ///< direction in degrees
    bool isEnableBorder = true; ///< false: only the hatch is painted and marked, not the outline
};

/** Equal styles and borders; spacing and angle compared with `qFuzzyCompare`. */
ZTDRAWENGINELIB_EXPORT bool operator==(const ZTFillParam &a, const ZTFillParam &b);
ZTDRAWENGINELIB_EXPORT bool operator!=(const ZTFillParam &a, const ZTFillParam &b);

/** Stream form: fillType (qint32), spac (double), angle (double), isEnableBorder (bool). */
ZTDRAWENGINELIB_EXPORT QDataStream &operator<<(QDataStream &stream, const ZTFillParam &param);
ZTDRAWENGINELIB_EXPORT QDataStream &operator>>(QDataStream &stream, ZTFillParam &param);

Q_DECLARE_METATYPE(ZTFillParam)
