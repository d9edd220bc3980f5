#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QStringList>
#include <QtCore/QVector>

namespace studio {

using Segment = ZTVariantTextSegment;
using Segments = QVector<ZTVariantTextSegment>;

// What a variant text shows on the drawing is the present part: its update has been made. Composing
// one anew starts from the step before, so that the next update makes the present part once more.

/** The segments as they were before the update that made the present part. */
Segments beforePresentPart(const Segments &segments);

/** A variant text whose next update makes the present part out of these segments. */
ZTVariantText variantTextOf(const Segments &segments);

/**
 * What this part and the next ones show, of a text of which each part uses up some values. Limit:
 * fewer parts than asked for where they are more than 10,000 values away.
 */
QStringList partPreview(const ZTVariantText &text, int valuesPerPart, int parts);

/** A text on one line, with arrows for its line ends. */
QString onOneLine(QString text);

/** One line about a segment, for a list of them. */
QString describe(const Segment &segment);

/** Moves all variant texts of a drawing on to the next part. */
struct NextPart
{
    QStringList texts;  ///< what the variant texts show now, lowest item first
    QStringList usedUp; ///< texts that show their last value once more
    QStringList errors; ///< what could not be read or cannot be shown, a line each

    static NextPart make(const QVector<ZTAbstractGraphicsItem *> &items);
};

} // namespace studio
