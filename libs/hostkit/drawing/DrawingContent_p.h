#pragma once

#include <hostkit/drawing/DrawingFile.h>

namespace hostkit {

// The contents of the sections, as docs/formats/drawing-file.md tells. Reading is false for
// anything but exactly what writing makes.

QByteArray metaToBytes(const DrawingMeta &meta);
bool metaFromBytes(const QByteArray &bytes, DrawingMeta *meta);

QByteArray restToBytes(const DrawingRest &rest); ///< without the drawings
bool restFromBytes(const QByteArray &bytes, DrawingRest *rest);

QByteArray drawingsToBytes(const QVector<QPainterPath> &drawings);
bool drawingsFromBytes(const QByteArray &bytes, QVector<QPainterPath> *drawings);

/** Whether document stream and rest are in step, with themselves and with each other. */
bool checkDrawing(const DrawingFile &drawing, DrawingError *error);

} // namespace hostkit
