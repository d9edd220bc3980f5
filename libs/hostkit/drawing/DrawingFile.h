#pragma once

#include <hostkit/drawing/DrawingError.h>
#include <hostkit/drawing/DrawingSetup.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QVector>
#include <QtGui/QImage>
#include <QtGui/QPainterPath>
#include <QtGui/QTransform>

namespace hostkit {

/** How many items of a drawing are marked with a pen. */
struct DrawingPen
{
    qint32 id = 1;
    qint32 items = 0;
};

/** What a file tells about its drawing. */
struct DrawingMeta
{
    QString programVersion;   ///< of the program that saved it
    QDateTime savedAt;        ///< UTC, to the millisecond
    DrawingSetup setup;       ///< what the drawing's numbers rest on
    QVector<DrawingPen> pens; ///< the pens in use, by id
};

/** What the document stream does not hold of a polygon or of an imported drawing. */
struct DrawingItemRest
{
    QRectF rectMm;
    QTransform transform;
    QTransform roundingTransform;
    ZTFillParam fill;
    ShapeType shapeType = ShapeType::None; ///< the one that the shape carries itself
    qint32 id = 0;
    bool lockAspectRatio = false;
    qint32 penId = 1;
    qint32 drawing = -1; ///< which of `DrawingRest::drawings`; -1: none, or not an imported one
};

/** Text height of a stroke font, which all texts in it share. */
struct DrawingFontHeight
{
    QString fileName;
    double height = 0.0;
};

/** All that the document stream loses of a drawing. */
struct DrawingRest
{
    QVector<DrawingItemRest> items; ///< of each polygon and imported drawing, from the lowest up
    QVector<DrawingFontHeight> fontHeights;
    QVector<QPainterPath> drawings; ///< imported plotter drawings, millimetres; each one once
};

/** A section that this version does not know. */
struct DrawingSection
{
    QByteArray tag; ///< four bytes
    QByteArray bytes;
};

/**
 * A drawing as a file holds it, away from any document: a value, which may be taken to another
 * thread. `docs/formats/drawing-file.md` tells the bytes.
 *
 * captureDrawing (DrawingSnapshot.h) fills one from a document; applyDrawing loads one.
 */
struct DrawingFile
{
    DrawingMeta meta;
    QByteArray previewPng; ///< may be empty
    QByteArray stream;     ///< what `ZTShapeManager::save` wrote
    bool hasRest = false;  ///< false: a bare stream, which loads as the library loads it
    DrawingRest rest;
    QVector<DrawingSection> unknown; ///< kept through a save, in their order
};

/** The version of the format that is written, and the only one that is read. */
constexpr quint16 kDrawingFormatVersion = 1;

/** Whether a file that begins with these bytes says of itself that it is a drawing. */
bool hasDrawingMagic(const QByteArray &start);

/** Limit: no drawing file is larger. */
constexpr qint64 kMaxDrawingBytes = qint64(1024) * 1024 * 1024;

/** The file's bytes; the same drawing gives the same bytes. Failure: empty beyond the limit. */
QByteArray drawingToBytes(const DrawingFile &drawing);

/**
 * Writes a drawing: at any moment, whatever happens, the old file or the new one is there, whole.
 * Failure: false with the reason; the old file stays.
 */
bool writeDrawing(const DrawingFile &drawing, const QString &path, DrawingError *error);

/**
 * Reads a drawing and checks everything: each byte is covered by a checksum, and what the document
 * stream says of itself is compared with what is there. Touches no document.
 *
 * Failure: false with the reason, and `drawing` stays as it was.
 */
bool readDrawing(const QByteArray &bytes, DrawingFile *drawing, DrawingError *error);
bool readDrawing(const QString &path, DrawingFile *drawing, DrawingError *error);

/** The picture of the drawing, at most 256 pixels wide and high; null when there is none. */
QImage drawingPreview(const DrawingFile &drawing);

} // namespace hostkit
