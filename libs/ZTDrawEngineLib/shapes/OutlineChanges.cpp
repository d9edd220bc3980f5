#include <ZTDrawEngineLib/shapes/OutlineChanges_p.h>

namespace {

struct Changes
{
    quint64 count = 0;
    const QPainterPath *last = nullptr; ///< never looked into: it may be gone
    quint64 countBeforeLast = 0;        ///< before it began to be the only one
};

thread_local Changes changes;

} // namespace

void ztoutlinechanges::note(const QPainterPath *outline)
{
    Changes &now = changes;
    if (outline == nullptr || outline != now.last) {
        now.last = outline;
        now.countBeforeLast = now.count;
    }
    ++now.count;
}

quint64 ztoutlinechanges::count() { return changes.count; }

bool ztoutlinechanges::isOnlyOneSince(quint64 count, const QPainterPath *outline)
{
    const Changes &now = changes;
    return now.count == count ||
           (outline != nullptr && now.last == outline && now.countBeforeLast <= count);
}
