#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QVector>

namespace hostkit {

/** How the lines of a hatch run. */
enum class HatchKind : quint8 {
    Lines,   ///< parallel, each by itself
    Zigzag,  ///< parallel, strung together along the outline
    Cross,   ///< parallel, and once more at a right angle
    Turned,  ///< parallel, at another angle in each pass
    Contours ///< along the outline, inward until nothing is left
};

/** When a hatch is marked. */
enum class HatchMoment : quint8 {
    Any,           ///< as the job says
    BeforeOutline, ///< before all outlines of the job
    AfterOutline   ///< after all outlines of the job
};

/** One hatch of a shape. A shape has up to `kMostHatches`. */
struct ShapeHatch
{
    HatchKind kind = HatchKind::Lines; ///< how its lines run
    double spacingMm = 0.5;            ///< 0.005 to 1,000
    double angleDeg = 0.0;             ///< -360 to 360, counter-clockwise; no matter for contours
    double turnDeg = 90.0;             ///< of `Turned`, for each pass; -360 to 360
    double insetMm = 0.0;              ///< distance from the outline; 0 to 1,000
    qint32 pen = 0;                    ///< 0: that of the shape; up to 9,999
    qint32 passes = 1;                 ///< 1 to 1,000, times those of the pen
    bool isOneWay = false;             ///< every line in one direction; otherwise to and fro
    HatchMoment moment = HatchMoment::Any; ///< when it is marked
};

bool operator==(const ShapeHatch &a, const ShapeHatch &b); ///< to the last bit
inline bool operator!=(const ShapeHatch &a, const ShapeHatch &b) { return !(a == b); }

/** Limit: hatches of one shape. */
constexpr int kMostHatches = 8;

/** Whether overlapping outlines of one shape are united before they are marked and hatched. */
enum class OutlineUnion : quint8 {
    OfTexts, ///< where the shape is a text with outlines
    Never,
    Always
};

/** Whether every value lies in its range. */
bool isInRange(const ShapeHatch &hatch);

/** Whether its lines are those of the library's own fill parameters: no inset, to and fro. */
bool isPlain(const ShapeHatch &hatch);

/** Hatches as bytes of a drawing file. */
QByteArray hatchBytes(const QVector<ShapeHatch> &hatches);

/** Failure: false where the bytes are not what `hatchBytes` makes, and `hatches` stays. */
bool takeHatches(const QByteArray &bytes, QVector<ShapeHatch> *hatches);

} // namespace hostkit
