#pragma once

#include <vectorkit/VectorReader.h>

namespace vectorkit {

/** Whether most of what the first bytes hold are commands of a plotter. */
bool looksLikeHpgl(const QByteArray &start);

/**
 * What a file is that no reader takes, and what to do with it, as far as its first bytes tell.
 *
 * Failure: none; a file of no known kind is said to be that.
 */
ReadFailure foreignKindOf(const QByteArray &start);

} // namespace vectorkit
