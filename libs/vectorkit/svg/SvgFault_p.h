#pragma once

#include <vectorkit/VectorReader.h>

QT_BEGIN_NAMESPACE
class QXmlStreamReader;
QT_END_NAMESPACE

namespace vectorkit {

/**
 * What is wrong with a file where its reader stopped, with line and column and what to do about
 * it; all of it translated. `bytes` are what was read. Range: `xml` has an error.
 */
ReadFailure svgFaultOf(const QXmlStreamReader &xml, const QByteArray &bytes,
                       ReadFailure::Kind kind);

} // namespace vectorkit
