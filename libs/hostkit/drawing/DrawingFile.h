#pragma once

#include <hostkit/drawing/DrawingExtras.h>
#include <hostkit/drawing/DrawingSetup.h>
#include <hostkit/files/Failure.h>
#include <hostkit/items/StrokeFontHeights.h>

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QVector>
#include <QtGui/QImage>
#include <QtGui/QPainterPath>

#include <optional>

namespace hostkit {

/** How many items of a drawing are marked with a pen. */
struct DrawingPen
{
    qint32 id = 1;    ///< number of the pen, 1 to 9999
    qint32 items = 0; ///< at least 1 of a pen in use
};

/** What a file tells about its drawing. */
struct DrawingMeta
{
    QString programVersion;   ///< of the program that saved it
    QDateTime savedAt;        ///< UTC, to the millisecond
    DrawingSetup setup;       ///< what the drawing's numbers rest on
    QVector<DrawingPen> pens; ///< the pens in use, by id
};

/**
 * Where the drawing in a recovery file belongs. It is about that very file: it stays behind when
 * the drawing is put into a document.
 */
struct DrawingOrigin
{
    QString path;           ///< file of the drawing; empty for one that was never saved
    qint64 size = -1;       ///< of that file in bytes when the studio read or wrote it; -1: none
    qint64 modifiedMs = -1; ///< since 1970-01-01 00:00 UTC; -1: no file
};

/**
 * A drawing as a file holds it, away from any document: a value, which may be taken to another
 * thread. `docs/formats/drawing-file.md` tells the bytes.
 *
 * captureDrawing (DrawingCapture.h) fills one from a document; applyDrawing (DrawingLoader.h) puts
 * one into a document.
 */
struct DrawingFile
{
    quint16 version = 0;            ///< of the format it was read from; writing gives the latest
    bool isBare = false;            ///< of version 1, without what its document stream loses
    DrawingMeta meta;               ///< what the file tells about its drawing
    QByteArray previewPng;          ///< may be empty
    QByteArray counters;            ///< registry of variant texts, then the next id
    QVector<DrawingItem> items;     ///< lowest first
    QVector<QPainterPath> drawings; ///< imported plotter drawings, millimetres; each one once
    QVector<StrokeFontHeight> fontHeights; ///< of the stroke fonts that its texts use
    DrawingExtras extras;                  ///< its foreign items stand among `items`, until applied
    std::optional<DrawingOrigin> origin;   ///< of a recovery file
};

/** The version of the format that is written. All versions from 1 on are read. */
constexpr quint16 kDrawingFormatVersion = 2;

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
bool writeDrawing(const DrawingFile &drawing, const QString &path, Failure *failure);

/**
 * Reads a drawing and checks everything: each byte is covered by a checksum, and every record of
 * the library's own kinds is walked from end to end. Touches no document.
 *
 * Failure: false with the reason, and `drawing` stays as it was.
 */
bool readDrawing(const QByteArray &bytes, DrawingFile *drawing, Failure *failure);
bool readDrawing(const QString &path, DrawingFile *drawing, Failure *failure);

/** The picture of the drawing, at most 256 pixels wide and high; null when there is none. */
QImage drawingPreview(const DrawingFile &drawing);

} // namespace hostkit
