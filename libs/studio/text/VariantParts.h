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

/** One line about a segment, for a list of them. */
QString describe(const Segment &segment);

} // namespace studio
