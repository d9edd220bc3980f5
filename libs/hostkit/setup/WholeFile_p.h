#pragma once

#include <QtCore/QString>

#include <functional>

QT_BEGIN_NAMESPACE
class QIODevice;
QT_END_NAMESPACE

namespace hostkit {

/** Writes to a device; false where what is written cannot be made, whatever the device says. */
using DeviceWriter = std::function<bool(QIODevice &device)>;

/**
 * Writes a file that appears whole or not at all: a failed write leaves what stood there before.
 *
 * Failure: false, and `error` (if given) says why in one sentence without the file's name.
 */
bool saveWhole(const QString &path, const DeviceWriter &write, QString *error);

} // namespace hostkit
