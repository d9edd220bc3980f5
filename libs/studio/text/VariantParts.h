#pragma once

#include <hostkit/items/PartTexts.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QStringList>
#include <QtCore/QVector>

namespace studio {

using Segment = ZTVariantTextSegment;
using Segments = QVector<ZTVariantTextSegment>;

using hostkit::beforePresentPart;
using hostkit::NextPart;
using hostkit::onOneLine;

/** A variant text whose next update makes the present part out of these segments. */
ZTVariantText variantTextOf(const Segments &segments);

/**
 * What this part and the next ones show, of a text of which each part uses up some values. Limit:
 * fewer parts than asked for where they are more than 10,000 values away.
 */
QStringList partPreview(const ZTVariantText &text, int valuesPerPart, int parts);

/** One line about a segment, for a list of them. */
QString describe(const Segment &segment);

} // namespace studio
