#pragma once

#include <QtWidgets/QGraphicsScene>

#include <optional>

namespace studio {

/**
 * Keeps a scene from noting anew where each single item lies while thousands of them change: it
 * forgets all places at once, and notes them when it is asked for one again. Nobody may ask for
 * items as long as it lives.
 */
class IndexPause
{
public:
    /** It does nothing where few of `all` change: those are noted sooner one by one. */
    IndexPause(QGraphicsScene &scene, int changes, int all) : m_scene(scene)
    {
        if (changes < kMany || changes < all / 2 ||
            scene.itemIndexMethod() != QGraphicsScene::BspTreeIndex)
            return;
        m_depth = scene.bspTreeDepth();
        scene.setItemIndexMethod(QGraphicsScene::NoIndex);
    }

    ~IndexPause()
    {
        if (!m_depth)
            return;
        m_scene.setItemIndexMethod(QGraphicsScene::BspTreeIndex);
        m_scene.setBspTreeDepth(*m_depth);
    }

    IndexPause(const IndexPause &) = delete;
    IndexPause &operator=(const IndexPause &) = delete;

private:
    static constexpr int kMany = 1000;

    QGraphicsScene &m_scene; ///< borrowed
    std::optional<int> m_depth;
};

} // namespace studio
