#include <ZTDrawEngineLib/items/commands/ZTMoveStep_p.h>

#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsResizeItem.h>
#include <ZTDrawEngineLib/items/ZTSceneIndex_p.h>
#include <ZTDrawEngineLib/items/commands/ZTItemPosCommand.h>

namespace {

/** So many moves are undone one by one. */
constexpr int kFewMoves = 256;

} // namespace

/** What the commands of one step share: an undo or redo runs through all of them. */
class ZTMoveGroup
{
public:
    void addMember() { ++m_memberCount; }

    /** From now on the commands are carried out by the stack. */
    void close() { m_isClosed = true; }

    void beginMember(ZTAbstractGraphicsItem *item)
    {
        if (!m_isClosed || item == nullptr)
            return;
        if (!m_scene && item->scene() != nullptr) {
            m_scene = item->scene();
            forgetPlaces(*m_scene);
            m_scene->update();
        }
        if (!m_frame && item->getResizeItem() != nullptr) {
            m_frame = item->getResizeItem();
            m_wasFollowing = m_frame->isEnableResizeFromChild();
            m_frame->setEnableResizeFromChild(false);
        }
    }

    void endMember()
    {
        if (!m_isClosed || ++m_doneCount < m_memberCount)
            return;
        m_doneCount = 0;
        m_scene.clear();
        const QPointer<ZTGraphicsResizeItem> frame = m_frame;
        m_frame.clear();
        if (!frame || !m_wasFollowing)
            return;
        frame->setEnableResizeFromChild(true);
        frame->resizeFromChild();
    }

private:
    int m_memberCount = 0;
    int m_doneCount = 0; ///< of the undo or redo under way
    bool m_isClosed = false;
    QPointer<QGraphicsScene> m_scene;       ///< of the undo or redo under way; borrowed
    QPointer<ZTGraphicsResizeItem> m_frame; ///< that waits meanwhile; borrowed
    bool m_wasFollowing = true;
};

namespace {

class GroupedPosCommand : public ZTItemPosCommand
{
public:
    GroupedPosCommand(ZTAbstractGraphicsItem *item, const QPointF &fromPx, const QPointF &toPx,
                      std::shared_ptr<ZTMoveGroup> group)
        : ZTItemPosCommand(item, fromPx, toPx), m_item(item), m_group(std::move(group))
    {
        m_group->addMember();
    }

    void undo() override
    {
        m_group->beginMember(m_item);
        ZTItemPosCommand::undo();
        m_group->endMember();
    }

    void redo() override
    {
        m_group->beginMember(m_item);
        ZTItemPosCommand::redo();
        m_group->endMember();
    }

private:
    QPointer<ZTAbstractGraphicsItem> m_item; ///< borrowed
    std::shared_ptr<ZTMoveGroup> m_group;
};

} // namespace

ZTMoveStep::ZTMoveStep(QUndoStack *undoStack, const QString &text, int moveCount)
    : m_step(undoStack, text),
      m_group(moveCount > kFewMoves ? std::make_shared<ZTMoveGroup>() : nullptr)
{
}

ZTMoveStep::~ZTMoveStep()
{
    if (m_group)
        m_group->close();
}

void ZTMoveStep::push(ZTAbstractGraphicsItem *item, const QPointF &fromPx, const QPointF &toPx)
{
    if (m_group)
        m_step.push(std::make_unique<GroupedPosCommand>(item, fromPx, toPx, m_group));
    else
        m_step.push(std::make_unique<ZTItemPosCommand>(item, fromPx, toPx));
}
