#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QGraphicsItem>
#include <QtWidgets/QGraphicsScene>

/**
 * A scene finds items through an index of places, out of which an item that moves is taken, and
 * into which it comes again when the scene is painted next. That costs much more than the move.
 */

/**
 * Makes a scene forget where its items are, so that any number of moves costs no more than the
 * moves; it finds out again when it is asked next.
 */
inline void forgetPlaces(QGraphicsScene &scene)
{
    if (scene.itemIndexMethod() != QGraphicsScene::BspTreeIndex)
        return;
    // Every other depth makes the index begin again.
    const int depth = scene.bspTreeDepth();
    scene.setBspTreeDepth(depth + 1);
    scene.setBspTreeDepth(depth);
}

/**
 * Makes a scene list an item without a parent, and its children, behind all others.
 *
 * Qt sorts its list whenever it is asked for all items in their order, and is bad at one in which
 * several that belong last stand first: 100,000 items behind frame and handles take 150 to 220 ms
 * then, and 20 to 25 before them.
 */
inline void listLast(QGraphicsItem &item)
{
    if (item.scene() == nullptr || item.scene()->itemIndexMethod() != QGraphicsScene::BspTreeIndex)
        return;
    // What has no place in the index goes to the end of those that wait for one, with its children,
    // when this flag changes. Elsewhere its old place in the list would be given to it again.
    forgetPlaces(*item.scene());
    const bool isOn = item.flags().testFlag(QGraphicsItem::ItemIgnoresTransformations);
    item.setFlag(QGraphicsItem::ItemIgnoresTransformations, !isOn);
    item.setFlag(QGraphicsItem::ItemIgnoresTransformations, isOn);
}

/**
 * As long as it lives, the index of its scene has the least depth: begun again and again, it costs
 * little, and most items lie in what is painted anyway.
 */
class ZTShallowIndex
{
public:
    explicit ZTShallowIndex(QGraphicsScene &scene)
        : m_scene(&scene),
          m_depth(scene.itemIndexMethod() == QGraphicsScene::BspTreeIndex ? scene.bspTreeDepth()
                                                                          : kNoDepth)
    {
        if (m_depth != kNoDepth)
            scene.setBspTreeDepth(1);
    }

    ~ZTShallowIndex()
    {
        if (m_scene && m_depth != kNoDepth &&
            m_scene->itemIndexMethod() == QGraphicsScene::BspTreeIndex)
            m_scene->setBspTreeDepth(m_depth);
    }

    ZTShallowIndex(const ZTShallowIndex &) = delete;
    ZTShallowIndex &operator=(const ZTShallowIndex &) = delete;

private:
    static constexpr int kNoDepth = -1;

    QPointer<QGraphicsScene> m_scene; ///< borrowed
    int m_depth;
};

/**
 * As long as it lives, its scene keeps no index. Only for a moment in which nobody else is asked:
 * a scene without an index gives its items in any order, whichever one is wanted.
 */
class ZTIndexPause
{
public:
    explicit ZTIndexPause(QGraphicsScene &scene)
        : m_scene(scene), m_method(scene.itemIndexMethod()),
          m_depth(m_method == QGraphicsScene::BspTreeIndex ? scene.bspTreeDepth() : 0)
    {
        scene.setItemIndexMethod(QGraphicsScene::NoIndex);
    }

    ~ZTIndexPause()
    {
        m_scene.setItemIndexMethod(m_method);
        if (m_method == QGraphicsScene::BspTreeIndex)
            m_scene.setBspTreeDepth(m_depth);
    }

    ZTIndexPause(const ZTIndexPause &) = delete;
    ZTIndexPause &operator=(const ZTIndexPause &) = delete;

private:
    QGraphicsScene &m_scene; ///< borrowed
    QGraphicsScene::ItemIndexMethod m_method;
    int m_depth;
};
