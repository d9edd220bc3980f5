#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <QtCore/QString>
#include <QtGui/QPainterPath>

class QIODevice;

/**
 * Reads a plotter drawing: the pen-up and pen-down lines of an HP-GL file, one point a line.
 * Whatever else a file holds is passed over in silence; `PltCheck` tells what that was.
 *
 * Source of the format: `docs/formats/plt.md`.
 * Frame: the drawing comes out 20 mm high in its own proportions, left edge at x = 0, y downward.
 * Limit: lines of 64 MiB and 50,000,000 points; a file beyond them is not read.
 */
class ZTDRAWENGINELIB_EXPORT PltReader
{
public:
    /**
     * Reads the file and replaces the drawing. A drawing whose points all have one y has no height
     * to bring to 20 mm: it is read, and comes out empty.
     *
     * Failure: false, and the former drawing stays, when the file cannot be opened (told in the
     * debug log as "file open failed..." with the system's reason) or read to its end, is beyond
     * the limits, is empty, or has no polyline of two points.
     */
    bool load(const QString &fileName);

    /**
     * Reads an open device, such as standard input or a buffer, to its end, as `load` does a file.
     *
     * Owner: the caller, who also closes it.
     */
    bool load(QIODevice &device);

    /** The normalised drawing, one open polygon per pen-down run; empty before the first load. */
    const QPainterPath &getPath() const;

    /** Puts a normalised drawing in place of the one that was read. */
    void setPath(const QPainterPath &pathMm);

private:
    QPainterPath m_path;
};
