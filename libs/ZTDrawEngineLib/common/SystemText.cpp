#include <ZTDrawEngineLib/common/SystemText_p.h>

#include <QtCore/QPointF>
#include <QtCore/QString>
#include <QtGui/QFont>
#include <QtGui/QGlyphRun>
#include <QtGui/QPainterPath>
#include <QtGui/QRawFont>
#include <QtGui/QTextLayout>

namespace {

/** The letters of `text` with the fonts that they are taken from, fonts that stand in included. */
QList<QGlyphRun> glyphRunsOf(const QFont &font, const QString &text)
{
    QTextLayout layout(text, font);
    layout.beginLayout();
    while (layout.createLine().isValid()) {
        // All lines: separators inside the text begin further ones.
    }
    layout.endLayout();
    return layout.glyphRuns();
}

/**
 * Lets the font file of `rawFont` forget where the last letter was painted.
 *
 * Letters are painted at fractions of a pixel. The rasteriser keeps that shift with the file, for
 * all sizes, and adds it to outlines that are asked for next. Opening the file at another size
 * sets the shift to zero.
 */
void forgetLastPainted(QRawFont rawFont) { rawFont.setPixelSize(rawFont.pixelSize() + 1.0); }

} // namespace

void ztoutline::addText(QPainterPath &path, const QPointF &position, const QFont &font,
                        const QString &text)
{
    if (text.isEmpty())
        return;
    const QList<QGlyphRun> runs = glyphRunsOf(font, text);
    for (const QGlyphRun &run : runs)
        forgetLastPainted(run.rawFont());
    path.addText(position, font, text);
}
