#pragma once

#include <QtWidgets/QGraphicsSceneMouseEvent>

/** Whether a press begins a drag: a further button pressed in a drag must not begin it anew. */
inline bool isFirstButton(const QGraphicsSceneMouseEvent *press)
{
    return (press->buttons() & ~Qt::MouseButtons(press->button())) == Qt::NoButton;
}

/** Whether a release ends a drag: it goes on while another button is held. */
inline bool isLastButton(const QGraphicsSceneMouseEvent *release)
{
    return release->buttons() == Qt::NoButton;
}

/**
 * The release that never comes when a drag loses the mouse. Qt keeps the positions that items had
 * at the press until an item gets its release; the next drag would start from them.
 */
struct LostRelease
{
    QGraphicsSceneMouseEvent event{QEvent::GraphicsSceneMouseRelease};
};
