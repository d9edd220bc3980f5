#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

QT_BEGIN_NAMESPACE
class QDataStream;
class QFont;
QT_END_NAMESPACE

namespace ztstream {

/**
 * Reads a font as its standard operator does, and survives any bytes.
 *
 * The operator makes room for as many family names as are announced, which damaged data can make
 * more than there is memory for. Here names are taken as they arrive, and none at all where a list
 * could not hold them.
 *
 * Limit: 100 family names, of which the first are kept; sizes of 10,000 and a word spacing of
 * 1,000,000, to which larger ones are cut. A size that is no number becomes 1.
 */
ZTDRAWENGINELIB_PRIVATE_EXPORT void readFont(QDataStream &stream, QFont &font);

} // namespace ztstream
