#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QStringList>
#include <QtCore/QVector>

namespace hostkit {

// What a variant text shows on a drawing is the present part: its update has been made. Composing
// one anew starts from the step before, so that the next update makes the present part once more.

/** The segments as they were before the update that made the present part. */
QVector<ZTVariantTextSegment> beforePresentPart(const QVector<ZTVariantTextSegment> &segments);

/** Moves all variant texts of a drawing on to the next part. */
struct NextPart
{
    QStringList texts;  ///< what the variant texts show now, lowest item first, a line each
    QStringList usedUp; ///< texts that show their last value once more
    QStringList errors; ///< what could not be read, a line each

    /** Shapes that show something else than their text, with why, a line each. */
    QStringList notReady;

    /** Moves on the variant texts among these items, each by what one part uses up. */
    static NextPart make(const QVector<ZTAbstractGraphicsItem *> &items);

    /**
     * Makes the present part once more, of this moment: dates are today's and lists are read anew,
     * while counters show what they show. `usedUp` stays empty.
     */
    static NextPart again(const QVector<ZTAbstractGraphicsItem *> &items);
};

/** A text on one line, with arrows for its line ends. */
QString onOneLine(QString text);

} // namespace hostkit
