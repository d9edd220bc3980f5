#pragma once

#include <fontkit/DataFolder.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace fontkit {

/**
 * Every character that the fonts on board draw and what it comes from, as Markdown: what stands in
 * docs/font-characters.md.
 *
 * Failure: an empty array, and a sentence in `error`, where a font cannot be made.
 */
QByteArray characterTable(const DataFolder &hershey, const DataFolder &hanzi, QString *error);

} // namespace fontkit
