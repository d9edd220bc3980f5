#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>
#include <ZTDrawEngineLib/items/ZTSceneIndex_p.h>

#include <QtCore/QPointer>
#include <QtCore/QVector>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QTransform>

#include <memory>

class ZTAbstractGraphicsItem;

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

/**
 * Many items that a frame carries: on the screen they are one picture, which moves with the frame,
 * and the scene's index is told once of each move. Their positions are theirs as ever.
 *
 * The picture is taken of the items as they stand when it is first painted, and again when what is
 * in sight, or the scale, has become another. It lies on whole pixels.
 *
 * Owner: the frame, from the first move of a drag to its end. Items may go at any time.
 */
class ZTDRAWENGINELIB_PRIVATE_EXPORT ZTCarriedItems
{
public:
    using Items = QVector<QPointer<ZTAbstractGraphicsItem>>;

    /** Null where the items are so quickly drawn, one by one, that nothing is gained. */
    static std::unique_ptr<ZTCarriedItems> of(QGraphicsScene &scene, const Items &items);

    ~ZTCarriedItems();

    ZTCarriedItems(const ZTCarriedItems &) = delete;
    ZTCarriedItems &operator=(const ZTCarriedItems &) = delete;

    /** Before each move: the scene need not be told of each item. */
    void beginMove();

    /** After it; the picture is wrong when not all items went with it, as at the border. */
    void noteMove(bool haveAllFollowed);

    /**
     * Draws the items, from the lowest to the topmost.
     *
     * @param painter paints a view, or whatever else a scene is drawn to
     * @param sceneToPainter maps the scene to where the painter, untransformed, paints
     * @param framePosPx where the frame is in the scene
     * @param view what is painted on; null for the items themselves instead of their picture
     */
    void paint(QPainter &painter, const QTransform &sceneToPainter, const QPointF &framePosPx,
               QWidget *view);

private:
    struct Picture
    {
        QImage image;
        QPoint topLeft;       ///< of the image, in pixels of the device
        bool isWhole = false; ///< nothing is left out
        QRectF boxPx;         ///< of the items, in the scene
        QPointF framePosPx;   ///< in the scene
        QTransform sceneToDevice;
    };

    ZTCarriedItems(QGraphicsScene &scene, const Items &items);

    bool isPictureGood(const QTransform &sceneToDevice, const QPointF &framePosPx,
                       const QRectF &shown, double ratio) const;
    QPoint shift(const QTransform &sceneToDevice, const QPointF &framePosPx) const;
    void takePicture(const QTransform &sceneToDevice, const QRectF &shown, double ratio,
                     QPainter::RenderHints hints, QWidget *view);
    QRectF boxPx() const;
    void paintItems(QPainter &painter, const QTransform &sceneToPainter, QWidget *view) const;

    QPointer<QGraphicsScene> m_scene; ///< borrowed
    Items m_items;                    ///< lowest first
    std::unique_ptr<ZTShallowIndex> m_shallowIndex;
    Picture m_picture;
    bool m_haveAllFollowed = true;
};
