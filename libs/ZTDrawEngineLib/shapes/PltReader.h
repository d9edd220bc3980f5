#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <QtCore/QString>
#include <QtGui/QPainterPath>

/**
 * Reads a plotter drawing: the pen-up and pen-down lines of an HP-GL file, one point a line.
 *
 * Source of the format: `docs/formats/plt.md`.
 * Frame: the drawing comes out 20 mm high in its own proportions, left edge at x = 0, y downward.
 */
class ZTDRAWENGINELIB_EXPORT PltReader
{
public:
    /**
     * Reads the file and replaces the drawing.
     *
     * Failure: false, and the former drawing stays, when the file cannot be opened (told in the
     * debug log as "file open failed..." with the system's reason), is empty, or holds no point.
     */
    bool load(const QString &fileName);

    /** The normalised drawing, one open polygon per pen-down run; empty before the first load. */
    const QPainterPath &getPath() const;

private:
    QPainterPath path;
};
