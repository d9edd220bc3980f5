#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <QtCore/QMetaType>

QT_BEGIN_NAMESPACE
class QDataStream;
QT_END_NAMESPACE

/** Settings of text on an arc. A default record has the arc switched off. */
struct ZTRoundingParam
{
    bool isEnableRounding = false; ///< true: text runs on the arc; false: on straight lines
    double startAngle = 0.0;       ///< start of the arc in degrees; 0 is three o'clock
    double spanAngle = 90.0;       ///< extent of the arc in degrees; positive runs clockwise
    double diameter = 200.0;       ///< distance of the glyphs from the centre, in path units
    double itemRotate = 0.0;       ///< rotation of the text item in degrees
    qint32 roundingFlag = 0;       ///< carried and compared, read by nothing
};

/**
 * Exact comparison of all six fields.
 *
 * Kept: stricter than the fuzzy comparison of `ZTFillParam`, so that the smallest change of an
 * arc counts as an edit.
 */
ZTDRAWENGINELIB_EXPORT bool operator==(const ZTRoundingParam &a, const ZTRoundingParam &b);
ZTDRAWENGINELIB_EXPORT bool operator!=(const ZTRoundingParam &a, const ZTRoundingParam &b);

/** Stream form: the fields in declared order; bool, four doubles, qint32. */
ZTDRAWENGINELIB_EXPORT QDataStream &operator<<(QDataStream &stream, const ZTRoundingParam &param);
ZTDRAWENGINELIB_EXPORT QDataStream &operator>>(QDataStream &stream, ZTRoundingParam &param);

Q_DECLARE_METATYPE(ZTRoundingParam)
