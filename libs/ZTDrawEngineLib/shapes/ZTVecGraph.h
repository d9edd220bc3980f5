#pragma once

#include <ZTDrawEngineLib/shapes/PltReader.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

/**
 * An imported plotter drawing, 20 mm high before its transform; shows the word "null" while there
 * is nothing to show, so that it stays visible and can be selected. The rectangle plays no part.
 *
 * Kept: the shape type of a new one is that of a TDOT figure; the item beside it carries
 * `ShapeType::VecGraph`.
 */
class ZTDRAWENGINELIB_EXPORT ZTVecGraph : public ZTShapeBase
{
public:
    ZTVecGraph();

    void paint() override;

    /** Reads the path and the file behind it anew. */
    bool load(QDataStream &stream) override;

    /** Writes the path (QString) alone: neither the drawing nor transform nor hatch. */
    void save(QDataStream &stream) const override;

    /**
     * Reads a plotter file, of any extension, and marks the shape. Does not paint.
     *
     * Failure: none is told. The name is kept in every case, and the former drawing stays when
     * the file yields none. A path that is nothing but ".plt", in any case, is not read.
     */
    void setImagePath(const QString &path);
    const QString &getImagePath() const;

    /**
     * Takes the drawing from an open device, such as standard input, under the name `path`, and
     * marks the shape. The name is kept and saved; nothing opens it now.
     *
     * Failure: false, and the former drawing stays, when the device yields none.
     */
    bool readImage(QIODevice &device, const QString &path);

    /** The imported drawing, 20 mm high; empty while there is none. */
    const QPainterPath &getDrawing() const;

    /**
     * Takes a drawing that was read before, under the name `path`, without a look at any file, and
     * marks the shape. An empty one takes the former drawing away.
     */
    void setDrawing(const QPainterPath &drawingMm, const QString &path);

private:
    QString m_imagePath;
    PltReader m_reader;
    qint32 m_imageKind = 0; ///< 1 once a file was handed to the reader
};
