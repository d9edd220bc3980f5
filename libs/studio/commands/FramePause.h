#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QPointer>

namespace studio {

/** Keeps a scene's selection frame from following each single item; it follows all at the end. */
class FramePause
{
public:
    explicit FramePause(const ZTGraphicsScene &scene) : m_frame(scene.getGraphicsResizeItem())
    {
        if (m_frame)
            m_frame->setEnableResizeFromChild(false);
    }

    ~FramePause()
    {
        if (!m_frame)
            return;
        m_frame->setEnableResizeFromChild(true);
        if (!m_frame->selectItem().isEmpty())
            m_frame->resizeFromChild();
    }

    FramePause(const FramePause &) = delete;
    FramePause &operator=(const FramePause &) = delete;

private:
    QPointer<ZTGraphicsResizeItem> m_frame; ///< borrowed from the scene
};

} // namespace studio
