#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

QT_BEGIN_NAMESPACE
class QFont;
class QPainterPath;
class QPointF;
class QString;
QT_END_NAMESPACE

namespace ztoutline {

/**
 * Adds the outlines of `text` in `font` to `path`, its baseline beginning at `position`.
 *
 * They are what QPainterPath::addText() gives in a process that has painted no text yet: the same
 * whatever was painted before, in this font or in others. The last ones are remembered, until
 * fonts come or go.
 *
 * Frame: that of the path; the font's size is taken as it would be on the screen.
 */
ZTDRAWENGINELIB_PRIVATE_EXPORT void addText(QPainterPath &path, const QPointF &position,
                                            const QFont &font, const QString &text);

/**
 * A number that changes whenever fonts come or go: what was made from outlines before is to be made
 * anew. Always the same in threads other than that of the program's windows.
 */
[[nodiscard]] int fontGeneration();

/** Lets outlines be laid out anew that `addText` remembers; for tests of how they are laid out. */
ZTDRAWENGINELIB_PRIVATE_EXPORT void forgetTexts();

} // namespace ztoutline
