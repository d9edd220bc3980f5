#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <QtGui/QPainterPath>

/**
 * What happened to the extents of outlines in this thread: how often one changed, and which was the
 * only one to do so lately.
 *
 * A shape knows nothing of those who keep its extent. They remember the count, and when they come
 * back to one shape they learn here whether the others are as they were.
 */
namespace ztoutlinechanges {

/** Takes note of a changed extent. Null: of nobody in particular, or of several. */
ZTDRAWENGINELIB_PRIVATE_EXPORT void note(const QPainterPath *outline);

/** Changes so far. */
ZTDRAWENGINELIB_PRIVATE_EXPORT quint64 count();

/** Whether since `count` changes no outline but this one has changed. */
ZTDRAWENGINELIB_PRIVATE_EXPORT bool isOnlyOneSince(quint64 count, const QPainterPath *outline);

} // namespace ztoutlinechanges
