#pragma once

#include <hostkit/files/Failure.h>

#include <functional>

QT_BEGIN_NAMESPACE
class QIODevice;
QT_END_NAMESPACE

namespace hostkit {

/** Writes to a device; false where what is written cannot be made, whatever the device says. */
using DeviceWriter = std::function<bool(QIODevice &device)>;

/** Asked once all is on the disk, just before it takes the old file's place: false gives up. */
using StillWanted = std::function<bool()>;

/**
 * Writes a file: at any moment, whatever happens, the old file or the new one is there, whole. The
 * one way in which files of this system are written.
 *
 * The new content stands in a file beside it, "NAME.zt-part-XXXXXXXX", until it is all there. One
 * that a killed process left behind is removed by the next `saveWhole` of the same file. A link
 * stays a link, and the permissions of the old file stay.
 *
 * Failure: false with the reason, and what stood there before stays. Nothing but an ordinary file
 * is ever replaced.
 */
bool saveWhole(const QString &path, const DeviceWriter &write, Failure *failure,
               const StillWanted &isWanted = {});

/**
 * Removes what killed processes left of saving the files of a folder. Those that a running process
 * writes stay, and so does every file of anybody else.
 */
void removeLeftovers(const QString &folder);

} // namespace hostkit
