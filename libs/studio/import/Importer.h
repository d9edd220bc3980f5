#pragma once

#include <studio/program/Messages.h>
#include <studio/shapes/ShapeItems.h>

#include <hostkit/import/DrawingImport.h>

#include <vectorkit/VectorReader.h>
#include <vectorkit/clean/DrawingCleaning.h>

#include <QtCore/QPointF>

#include <functional>
#include <optional>

class ZTGraphicsDocument;

namespace studio {

/** A foreign drawing that was read and has not come in yet. */
struct ReadDrawing
{
    QString path; ///< or what stands for it, as a name for people
    vectorkit::VectorDrawing drawing;
    double scaleX = 1.0; ///< from its true size to what `drawing` has
    double scaleY = 1.0;
    vectorkit::CleanOptions cleaning = {}; ///< that `drawing` has been through
};

/** Brings foreign drawings into a document, and tells what was wrong with them. */
class Importer
{
public:
    /** Both are borrowed and outlive the importer. */
    Importer(ZTGraphicsDocument &document, Messages &messages);

    /**
     * Imports files at true size, side by side as one undo step, and selects what came in.
     *
     * @param centrePx middle of the row of drawings on the scene; the origin if none is given
     * @return number of files that came in
     *
     * What takes long shows how far it is and can be cancelled: then nothing comes in. What has no
     * name goes by that of its file.
     *
     * Failure: a file that holds no drawing is left out and named in a message; one that loses
     * something comes in, and a message lists it.
     */
    int importFiles(const QStringList &paths, std::optional<QPointF> centrePx = std::nullopt);

    /** Reads one file; false, told in a message, when it holds no drawing, or when cancelled. */
    bool read(const QString &path, ReadDrawing *read);

    /** Those of the files that hold a drawing, as `read` tells; none when one is cancelled. */
    QVector<ReadDrawing> readAll(const QStringList &paths);

    /** The same with the bytes of a file that has no name, such as what the clipboard holds. */
    bool read(const QByteArray &bytes, const QString &name, ReadDrawing *read);

    /** The second half of `importFiles`: what was read comes in as the options say. */
    int bringIn(const QVector<ReadDrawing> &drawings, const hostkit::ImportOptions &options,
                std::optional<QPointF> centrePx = std::nullopt);

    /** The same as it came in last time: split, pens and what is cleaned. */
    int bringInAsLast(const QVector<ReadDrawing> &drawings,
                      std::optional<QPointF> centrePx = std::nullopt);

private:
    using Read = std::function<bool(const vectorkit::ReadOptions &, vectorkit::ReadFailure *)>;

    bool readWith(const QString &name, const Read &readOne, vectorkit::VectorDrawing *drawing);
    hostkit::ImportResult bringInOne(const ReadDrawing &read,
                                     const hostkit::ImportOptions &options);
    void takeBack(const ShapeItems &items);

    ZTGraphicsDocument &m_document;
    Messages &m_messages;
    bool m_isCancelled = false; ///< the last reading
};

} // namespace studio
