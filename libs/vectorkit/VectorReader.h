#pragma once

#include <vectorkit/VectorDrawing.h>

#include <QtCore/QByteArray>

#include <functional>

namespace vectorkit {

/** How to read. */
struct ReadOptions
{
    /** Length of the file's unit in mm, against what the file says; 0: as the file says. */
    double unitMm = 0.0;

    /** Told how much is done, 0 to 1, now and then; false cancels. May be empty. */
    std::function<bool(double done)> progress;

    /** Limit: bytes of a file, unpacked where it is compressed. */
    qint64 mostBytes = qint64(256) * 1024 * 1024;

    /** Limit: pieces of all paths, those from repeated blocks included. */
    qint64 mostPieces = 20000000;
};

/** Why a file was not read. */
struct ReadFailure
{
    enum class Kind : quint8 { None, Unreadable, TooLarge, WrongFormat, Damaged, Empty, Cancelled };
    Kind kind = Kind::None; ///< what went wrong; None: nothing
    QString reason;         ///< one sentence, translated, without the file's name
    QString advice;         ///< what to do, one sentence, translated; may be empty
};

/** The format that the first bytes show; `Unknown` for anything else. */
VectorFormat formatOf(const QByteArray &start);

/**
 * Reads a foreign drawing, its format chosen by content; one that gzip compressed, such as an
 * .svgz, is unpacked first.
 *
 * Order: any thread; drawings with texts in SVG need a `QGuiApplication`.
 * Failure: false with the reason, and `drawing` stays as it was.
 */
bool readDrawing(const QByteArray &bytes, const ReadOptions &options, VectorDrawing *drawing,
                 ReadFailure *failure);
bool readDrawingFile(const QString &path, const ReadOptions &options, VectorDrawing *drawing,
                     ReadFailure *failure);

// One format each; they refuse what is none of theirs.
bool readHpgl(const QByteArray &bytes, const ReadOptions &options, VectorDrawing *drawing,
              ReadFailure *failure);
bool readSvg(const QByteArray &bytes, const ReadOptions &options, VectorDrawing *drawing,
             ReadFailure *failure);
bool readDxf(const QByteArray &bytes, const ReadOptions &options, VectorDrawing *drawing,
             ReadFailure *failure);

} // namespace vectorkit
