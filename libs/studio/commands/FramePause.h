#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QPointer>

namespace studio {

/** Keeps a scene's selection frame from following each single item; it follows all at the end. */
class FramePause
{
public:
    explicit FramePause(const ZTGraphicsScene &scene) : frame(scene.getGraphicsResizeItem())
    {
        if (frame)
            frame->setEnableResizeFromChild(false);
    }

    ~FramePause()
    {
        if (!frame)
            return;
        frame->setEnableResizeFromChild(true);
        if (!frame->selectItem().isEmpty())
            frame->resizeFromChild();
    }

    FramePause(const FramePause &) = delete;
    FramePause &operator=(const FramePause &) = delete;

private:
    QPointer<ZTGraphicsResizeItem> frame; ///< borrowed from the scene
};

} // namespace studio
