#pragma once

#include <ZTDrawEngineLib/common/ZTEnumerations.h>

#include <QtCore/QList>
#include <QtCore/QPointer>
#include <QtWidgets/QFrame>
#include <QtWidgets/QGraphicsItem>

#include <memory>

QT_BEGIN_NAMESPACE
class QUndoStack;
QT_END_NAMESPACE

class ZTGraphicsScene;
class ZTGraphicsView;
class ZTObjectTreeWidget;
class ZTShapeManager;

/**
 * The widget that a host puts on its form: the library's entry point.
 *
 * Owns the view, the undo stack and the shape manager, and hands out the scene. A host registers
 * the item factories (`ZTGraphicsItemFactory`) before the first shape; it may install a translator
 * with the catalogue "ZTDrawEngineLib_zh.qm" from the library's resources.
 *
 * Owner: the host, through the widget's parent.
 * Order: ready after construction. GUI thread only.
 */
class ZTDRAWENGINELIB_EXPORT ZTGraphicsDocument : public QFrame
{
    Q_OBJECT

public:
    explicit ZTGraphicsDocument(QWidget *parent = nullptr);
    ~ZTGraphicsDocument() override;

    ZTGraphicsView *view() const;           ///< Owner: the document
    ZTGraphicsScene *scene() const;         ///< the shape manager's scene, or what `setScene` set
    ZTShapeManager *itemMag() const;        ///< Owner: the document
    QUndoStack *undoStack() const;          ///< Owner: the document
    ZTObjectTreeWidget *objectTree() const; ///< Owner: the host; null until `setObjectTree`

    /** Replaces the stored pointer alone: view and shape manager keep their scene. */
    void setScene(ZTGraphicsScene *scene);

    /** Gives the host's tree extended selection, the object model and its selection. */
    void setObjectTree(ZTObjectTreeWidget *tree);

    /** Clears the undo stack, then all shapes. Keeps the view's zoom. */
    void clear();

public Q_SLOTS:
    /**
     * Creates a shape of 10 by 10 mm at a random place near the origin, so that shapes created one
     * after the other do not pile up.
     *
     * Emits: the manager's `sigAddedShape`, with null for a kind without a registered factory.
     */
    void slotCreateShape(const ShapeType &type);
    void slotCreateShape(int type); ///< the same for the number of a `ShapeType`
    void slotViewZoomIn();
    void slotViewZoomOut();
    void slotViewResize(); ///< centres the origin at a scale of 1

    /**
     * Centres the selection and scales it to nine tenths of the view along its larger side.
     *
     * Kept: that side alone decides, so that the other may be clipped. Nothing happens without a
     * selection.
     */
    void slotViewDisplayItem();

Q_SIGNALS:
    /** Declared for hosts; the library never emits it. */
    void sigDeleteItems(QList<QGraphicsItem *> items);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    struct Form;

    void removeSelectItem();

    std::unique_ptr<Form> m_ui;
    QUndoStack *m_undoStack = nullptr;         ///< owned; deleted before the manager
    ZTShapeManager *m_shapeManager = nullptr;  ///< owned
    QPointer<ZTGraphicsScene> m_scene;         ///< borrowed from the manager
    QPointer<ZTObjectTreeWidget> m_objectTree; ///< borrowed from the host
};
