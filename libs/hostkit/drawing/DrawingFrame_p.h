#pragma once

#include <hostkit/drawing/DrawingFile.h>

namespace hostkit {

/** The frame of a drawing file: a header, then sections, all of it under checksums. */
struct DrawingFrame
{
    quint16 version = kDrawingFormatVersion;
    quint16 streamVersion = 0; ///< the `QDataStream` version of the sections' Qt types
    QVector<DrawingSection> sections;
};

/** Header and sections one behind the other. Failure: empty beyond `kMaxDrawingBytes`. */
QByteArray joinFrame(const DrawingFrame &frame);

/**
 * Takes a file apart. The sections' bytes are borrowed from `bytes`.
 *
 * Failure: false with the reason for anything that is not whole; what was read until then stands.
 */
bool splitFrame(const QByteArray &bytes, DrawingFrame *frame, Failure *failure);

/** The checksum of the format, CRC-32. */
quint32 drawingChecksum(const char *bytes, qint64 count);

/** Says what is wrong with a drawing; always false. */
bool failDamaged(Failure *failure, const QString &what);

} // namespace hostkit
