#pragma once

#include <jobkit/values/Pen.h>

#include <QtCore/QByteArray>
#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QStringList>

namespace jobkit {

/** How the head is moved, which decides how its time is reckoned. */
enum class MachineKind : quint8 {
    Galvo, ///< mirrors: constant speed, delays where the direction changes
    Gantry ///< axes with mass: acceleration, speed limited at corners
};

/** Where the machine counts from. */
enum class FieldOrigin : quint8 { Centre, BottomLeft, BottomRight, TopLeft, TopRight };

enum class YDirection : quint8 { Up, Down };

/** The forms of files that a job is written in. */
enum class JobForm : quint8 { Gcode, Hpgl, Dxf, Svg, Json, Csv };

/** The unit of coordinates in G-code. */
enum class LengthUnit : quint8 { Millimetre, Inch };

/** A machine: its field, its limits, how it moves and what it reads. */
struct MachineProfile
{
    QString name;                           ///< 1 to 200 characters
    MachineKind kind = MachineKind::Gantry; ///< how it moves

    double fieldWidthMm = 400.0;                  ///< 0.001 to 100,000
    double fieldHeightMm = 400.0;                 ///< 0.001 to 100,000
    FieldOrigin origin = FieldOrigin::BottomLeft; ///< where its (0, 0) is
    YDirection yDirection = YDirection::Up;       ///< where its y leads

    double mostSpeedMmPerS = 100.0; ///< while marking; 0.001 to 100,000
    double jumpSpeedMmPerS = 100.0; ///< of jumps, a gantry's rapid speed; 0.001 to 100,000

    double jumpDelayUs = 0.0;   ///< galvo: after a jump; 0 to 10,000,000
    double markDelayUs = 0.0;   ///< galvo: at the end of a polyline; 0 to 10,000,000
    double cornerDelayUs = 0.0; ///< galvo: where the way turns back, less at others; as above

    double accelerationMmPerS2 = 1000.0; ///< gantry; 0.001 to 10,000,000
    double junctionDeviationMm = 0.01;   ///< gantry; 0 to 100
    double mostPower = 1000.0;           ///< gantry: S at 100 %; 1 to 1,000,000
    bool isLaserMode = true;             ///< gantry: S may change without a stop

    JobForm form = JobForm::Gcode; ///< of files, where their name does not say
    QString head;                  ///< lines before the job, for G-code; at most 10,000 characters
    QString tail;                  ///< lines after the job, likewise
    int decimals = 3;              ///< of coordinates in G-code; 0 to 6
    LengthUnit unit = LengthUnit::Millimetre; ///< of coordinates in G-code

    /** What is wrong, with the field's name and its range, translated; empty: nothing. */
    QString problem() const;

    /**
     * The machine's coordinates of a point of a drawing, in mm.
     *
     * Frame: drawings have x to the right, y down and (0, 0) in the middle of the field.
     */
    QPointF toMachine(const QPointF &pointMm) const;
    /** The inverse of `toMachine`. */
    QPointF fromMachine(const QPointF &machineMm) const;
    /** The field in the drawing's frame. */
    QRectF fieldMm() const;
};

bool operator==(const MachineProfile &a, const MachineProfile &b);
inline bool operator!=(const MachineProfile &a, const MachineProfile &b) { return !(a == b); }

/** The numbers of a profile and their ranges, in the order of the file. */
QVector<FieldRange> profileRanges();

/** The profile as JSON, `docs/formats/job-profile.md`. */
QByteArray writeProfile(const MachineProfile &profile);

/**
 * Reads what `writeProfile` writes. Fields that are left out keep their defaults; `format`,
 * `version`, `name` and `kind` are needed, and a field that is not known is refused.
 *
 * Failure: false, `profile` stays, and `error` (if given) names the field, what is wrong there and
 * the range, in one translated sentence.
 * Limit: 1 MiB.
 */
bool readProfile(const QByteArray &json, MachineProfile *profile, QString *error);

/** The names of the profiles on board: `galvo-fiber`, `grbl-diode`. */
QStringList profilesOnBoard();

/** A profile on board by its name. Failure: false for any other name, and `profile` stays. */
bool profileOnBoard(const QString &name, MachineProfile *profile);

} // namespace jobkit
