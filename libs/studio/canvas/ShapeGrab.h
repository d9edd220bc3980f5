#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>

QT_BEGIN_NAMESPACE
class QGraphicsItem;
class QMouseEvent;
QT_END_NAMESPACE

class ZTGraphicsView;

namespace studio {

/**
 * Takes hold of the shape under a press, so that one drag selects and moves it. The scene selects a
 * pressed shape as well, but only the frame around the selection can be dragged, and it comes too
 * late for that press. With Ctrl the shape joins what is selected, and all of it moves.
 *
 * Order: made before all that looks at the mouse on the canvas, which then comes first.
 */
class ShapeGrab : public QObject
{
    Q_OBJECT

public:
    /** `view` is borrowed and outlives this. */
    explicit ShapeGrab(ZTGraphicsView &view, QObject *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void press(const QMouseEvent &event);
    /** For this press: handles that have just come under the mouse leave it to the frame. */
    void passHandles();
    QList<QGraphicsItem *> handles() const;

    ZTGraphicsView &m_view;
};

} // namespace studio
