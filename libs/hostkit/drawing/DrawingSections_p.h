#pragma once

#include <hostkit/drawing/DrawingError.h>
#include <hostkit/drawing/DrawingFile.h>

namespace hostkit {

/** The frame of a drawing file: a header, then sections, all of it under checksums. */
struct DrawingSections
{
    quint16 streamVersion = 0; ///< the `QDataStream` version of the sections' Qt types
    QVector<DrawingSection> sections;
};

/** Header and sections one behind the other. Failure: empty beyond `kMaxDrawingBytes`. */
QByteArray joinSections(const DrawingSections &file);

/**
 * Takes a file apart. The sections' bytes are borrowed from `bytes`.
 *
 * Failure: false with the reason for anything that is not whole; what was read until then stands.
 */
bool splitSections(const QByteArray &bytes, DrawingSections *file, DrawingError *error);

/** The checksum of the format, CRC-32. */
quint32 drawingChecksum(const char *bytes, qint64 count);

} // namespace hostkit
