#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtGui/QColor>

namespace jobkit {

/** How the laser's power follows the head. */
enum class PowerMode : quint8 {
    Constant, ///< the same power at any speed
    Dynamic   ///< lowered with the speed where the head slows down, off where it stands
};

/** What the laser does where a drawing is marked with one of its pens. */
struct Pen
{
    int number = 1;                           ///< 1 to 9999; the drawing's shapes name it
    QString name;                             ///< may be empty; at most 200 characters
    QColor color = QColor(0, 0, 0);           ///< in which the screen shows it
    bool isOn = true;                         ///< false: what has this pen is left out of a job
    int passes = 1;                           ///< 1 to 1000: how often everything is marked
    double speedMmPerS = 500.0;               ///< 0.001 to 100,000
    double powerPercent = 50.0;               ///< 0 to 100
    double frequencyKHz = 30.0;               ///< 0 to 100,000; 0: not pulsed
    double pulseWidthNs = 200.0;              ///< 0 to 1,000,000,000; 0: the source's own
    PowerMode powerMode = PowerMode::Dynamic; ///< how the power follows the head
    double dotMs = 1.0;                       ///< 0 to 60,000: how long the beam stays on a dot

    /** What is wrong, with the field's name and its range, translated; empty: nothing. */
    QString problem() const;
};

bool operator==(const Pen &a, const Pen &b);
inline bool operator!=(const Pen &a, const Pen &b) { return !(a == b); }

/** A value of a pen or a profile that is a number, as its file and an editor know it. */
struct FieldRange
{
    QString name;       ///< the key in JSON, with its unit
    double least = 0.0; ///< least value that is allowed
    double most = 0.0;  ///< most that is allowed
};

/** The numbers of a pen and their ranges, in the order of the file. */
QVector<FieldRange> penRanges();

/** The pen that a drawing starts with for this number: black, 500 mm/s, 50 %. */
Pen defaultPen(int number);

/** The pens of a new drawing: 16 of them, numbered from 1, in the colours of the screen. */
QVector<Pen> defaultPens();

/** The pen with this number, or null. Owner: `pens`. */
const Pen *findPen(const QVector<Pen> &pens, int number);

} // namespace jobkit
