#pragma once

#include <QtCore/QByteArray>

namespace vectorkit {

/** Whether bytes begin as a gzip file does, such as an .svgz. */
bool isGzip(const QByteArray &bytes);

enum class Unpacking : quint8 { Done, Damaged, TooLarge };

/**
 * Unpacks a gzip file, all its parts if it has several. Limit: `mostBytes` of what comes out.
 * Failure: says which; `unpacked` stays as it was.
 */
Unpacking gunzip(const QByteArray &packed, qint64 mostBytes, QByteArray *unpacked);

} // namespace vectorkit
