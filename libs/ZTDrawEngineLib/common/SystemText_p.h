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
 * whatever was painted before, in this font or in others.
 *
 * Frame: that of the path; the font's size is taken as it would be on the screen.
 */
ZTDRAWENGINELIB_PRIVATE_EXPORT void addText(QPainterPath &path, const QPointF &position,
                                            const QFont &font, const QString &text);

} // namespace ztoutline
