#pragma once

#include <hostkit/items/ShapeHatch.h>
#include <jobkit/values/MachineProfile.h>
#include <jobkit/values/Pen.h>

#include <QtCore/QLineF>
#include <QtGui/QPolygonF>

namespace jobkit {

/**
 * One hatch of an item: runs that are marked without a jump.
 *
 * Frame: millimetres, x to the right, y down, (0, 0) in the middle of the field.
 */
struct JobHatch
{
    int number = 0;        ///< of the item's hatches, from 1; 0: by its place
    int pen = 1;           ///< never 0
    int passes = 1;        ///< 1 to 1000; times those of the pen
    int turn = 1;          ///< of a hatch that is turned each pass: the pass that these runs are
    bool isOneWay = false; ///< every run is marked in its own direction
    hostkit::HatchMoment moment = hostkit::HatchMoment::Any; ///< before or after the outlines
    QVector<QPolygonF> runsMm;                               ///< each without a jump
};

/** What a drawing's object gives to a job. Frame: as of `JobHatch`. */
struct JobItem
{
    int object = 0; ///< tells the caller which object it is
    QString name;   ///< for people; may be empty
    int pen = 1;    ///< of the outlines
    /** Closed where the last point is the first. One point, or the same all along: a dot. */
    QVector<QPolygonF> outlinesMm;
    bool hasDots = false;        ///< its dots are meant, as those of a code of points
    QVector<JobHatch> hatches;   ///< at most 8, of one that is turned an entry a pass
    bool isSerialUsedUp = false; ///< its text has no further number
    QString missingCharacters;   ///< those of its text that the font does not have
};

bool operator==(const JobHatch &a, const JobHatch &b); ///< to the last bit
bool operator==(const JobItem &a, const JobItem &b);   ///< likewise

/** One run of a job: the head marks it from its first point to its last. */
struct PlanPiece
{
    QPolygonF pointsMm; ///< never empty; one point marks a dot
    int object = 0;     ///< `JobItem::object` of what it belongs to
    int pen = 1;        ///< never 0
    int hatch = 0;      ///< 0: an outline; otherwise the hatch, counted from 1
    int passes = 1;     ///< how often it is to be marked; 1 once the passes are laid out
    int pass = 1; ///< which pass this is; before the passes are laid out, which turn of its hatch
    bool isOneWay = false;                                   ///< must not be reversed
    bool isReversed = false;                                 ///< runs against the drawing
    hostkit::HatchMoment moment = hostkit::HatchMoment::Any; ///< of a hatch

    /** Whether the head stays where it is: the pen marks it as long as it marks a dot. */
    bool isDot() const;
    /** Whether it ends where it began, so that it may begin at any of its points. */
    bool isClosed() const;
};

/** A job in the order of marking. Frame: as of `JobHatch`. */
struct JobPlan
{
    QVector<PlanPiece> pieces; ///< in the order in which they are marked

    /**
     * Whether every piece has points, and all are finite. What is not sound is neither ordered nor
     * timed, and no file is made of it.
     */
    bool isSound() const;
    /** Length of what is marked, mm. */
    double markLengthMm() const;
    /** Length of the straight ways from piece to piece, mm; the way to the first is none. */
    double jumpLengthMm() const;
    /** Straight pieces that are marked. */
    qint64 segmentCount() const;
    /** Box of all points, mm; null when there is none. */
    QRectF boundsMm() const;
};

/** What follows what where a piece is marked more than once. */
enum class PassOrder : quint8 {
    /** All pieces once, then all that have a second pass, and so on; hatches that go before or
     * after the outlines with all their passes before or after those of the outlines. */
    WholeJob,
    EachObject ///< the outlines of an object, or one of its hatches, as often as they need, then on
};

/**
 * The pen with this number; where the list has none, that of `defaultPens`, or `defaultPen` for a
 * number beyond them. What is marked with such a pen was given no values: `checkJob` tells of it.
 */
Pen penOf(const QVector<Pen> &pens, int number);

/**
 * The pen with this number on a machine: what all files, times and checks of a job go by. One that
 * the list has is as it is there, however fast; one that it lacks is no faster than the machine.
 */
Pen penOf(const QVector<Pen> &pens, int number, const MachineProfile &machine);

/**
 * The pieces of the items in their order: of each item the hatches that go before it, its
 * outlines, then its other hatches, each once
 * with the number of its passes. What has a pen that is off is left out, and nothing else is: no
 * run is torn, dropped or doubled. Polylines without a point are none.
 */
JobPlan planOf(const QVector<JobItem> &items, const QVector<Pen> &pens);

/** Repeats the pieces that have several passes, each copy with its pass, counted from 1. */
void layOutPasses(JobPlan *plan, PassOrder order);

/**
 * Runs of hatch lines: a line that begins exactly where the one before it ended goes on with its
 * run. Every line is in one run, in its order and direction.
 */
QVector<QPolygonF> hatchRuns(const QVector<QLineF> &lines);

} // namespace jobkit
