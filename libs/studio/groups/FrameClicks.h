#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointF>

#include <optional>

QT_BEGIN_NAMESPACE
class QMouseEvent;
QT_END_NAMESPACE

class ZTGraphicsDocument;

namespace studio {

class GroupTools;

/**
 * A click within the frame around the selection means the shape under it: the frame lies over all
 * shapes, to be dragged, and keeps the press. A plain click selects that shape, or nothing where
 * none is; with Ctrl the shape joins the selection or leaves it.
 *
 * Order: made after `ShapeGrab` and before the tools, which then see the mouse first.
 */
class FrameClicks : public QObject
{
    Q_OBJECT

public:
    /** Both are borrowed and outlive this. */
    FrameClicks(ZTGraphicsDocument &document, GroupTools &groups, QObject *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void press(const QMouseEvent &event);
    void release(const QMouseEvent &event);
    void click(const QPoint &pos, bool isWithCtrl);

    ZTGraphicsDocument &m_document;
    GroupTools &m_groups;

    /** Where the frame stood when it was pressed. */
    struct Press
    {
        QPoint pos;
        QPointF framePx;
    };
    std::optional<Press> m_press;
};

} // namespace studio
