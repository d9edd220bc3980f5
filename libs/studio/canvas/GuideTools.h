#pragma once

#include <studio/canvas/Guides.h>

#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <memory>
#include <optional>

QT_BEGIN_NAMESPACE
class QMouseEvent;
class QWidget;
QT_END_NAMESPACE

class ZTGraphicsDocument;

namespace studio {

class CanvasLines;
class PointerLabel;
class SnapTools;

/**
 * Guides: dragged out of the rulers, moved on the canvas, dropped beside it to remove them, and put
 * to an exact place by a double click. Each of that is one undo step; the drawing keeps them.
 */
class GuideTools : public QObject
{
    Q_OBJECT

public:
    /** All are borrowed and outlive this; `window` is what dialogs stand over. */
    GuideTools(ZTGraphicsDocument &document, SnapTools &snap, QWidget &window);
    ~GuideTools() override;

    /** Lets guides be dragged out of a ruler, borrowed: those that run as it does. */
    void watchRuler(QWidget &ruler, Qt::Orientation orientation);

    QVector<Guide> guides() const;
    void removeAll();

    /** Shows the guides that the drawing carries now. */
    void follow();

    /** Gives up what is being dragged. */
    void giveUp();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /** A guide under way: an old one, or one that comes out of a ruler. */
    struct Drag
    {
        Guide guide;
        int place = -1;       ///< among the guides; -1: a new one
        QPoint pressPos;      ///< where it was taken; screen pixels
        bool isMoved = false; ///< the mouse has gone too far for a click
    };

    bool rulerEvent(const QWidget &ruler, QEvent *event);
    bool canvasEvent(QEvent *event);
    bool press(const QMouseEvent &event);
    void dragTo(const QPoint &globalPos, Qt::KeyboardModifiers keys);
    void drop(const QPoint &globalPos, Qt::KeyboardModifiers keys);
    void askForPlace(int place);
    int guideAt(const QPoint &pos) const;
    bool isFree(const QPoint &pos) const;
    void showCursor(const QPoint &pos);
    void change(const QVector<Guide> &guides, const QString &text);
    void show(const QVector<Guide> &guides);

    ZTGraphicsDocument &m_document;
    SnapTools &m_snap;
    QWidget &m_window;
    std::unique_ptr<CanvasLines> m_lines;
    QPointer<PointerLabel> m_label; ///< child of the canvas
    std::optional<Drag> m_drag;
    bool m_hasCursor = false; ///< the canvas shows that a guide can be dragged
};

} // namespace studio
