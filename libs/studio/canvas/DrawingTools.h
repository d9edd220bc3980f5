#pragma once

#include <studio/canvas/ToolDrag.h>
#include <studio/shapes/ShapeItems.h>

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <functional>
#include <memory>
#include <optional>

QT_BEGIN_NAMESPACE
class QCursor;
class QKeyEvent;
class QMouseEvent;
QT_END_NAMESPACE

namespace studio {

class DocumentActions;
class PointerLabel;
class ToolPreview;
struct ShapeKind;
struct ShapePlace;

/**
 * The tools that draw shapes on the canvas by dragging. One is chosen, or none, which is selecting.
 *
 * Press, drag, release makes a shape that fills the dragged box; Shift keeps proportions, of a line
 * steps of 15 degrees; Alt draws from the centre; a click alone makes a shape of the usual size
 * there. Esc gives up a drag, or else the tool. After a shape has been made nothing is chosen,
 * unless tools are kept.
 */
class DrawingTools : public QObject
{
    Q_OBJECT

public:
    /** Where a place of the mouse comes to; scene pixels. */
    using Snap = std::function<QPointF(const QPointF &placePx, Qt::KeyboardModifiers keys)>;

    /** The id of choosing none. */
    static constexpr const char *kSelect = "tool.select";

    /** The id of measuring: a drag tells distance and angle and makes nothing. */
    static constexpr const char *kMeasure = "tool.measure";

    /** Both are borrowed and outlive this. */
    DrawingTools(ZTGraphicsDocument &document, DocumentActions &actions, QObject *parent = nullptr);
    ~DrawingTools() override;

    /** A tool of somebody else's, who listens to `chosen`: its mouse is left to them. */
    void addTool(const QByteArray &id, const char *iconName) { m_others.insert(id, iconName); }

    /** Chooses the tool whose command has that id; what is being drawn is given up. */
    void choose(const QByteArray &id);

    /** Id of the chosen tool's command. */
    QByteArray chosenId() const { return m_id; }

    /** Gives up what is being drawn, and keeps the tool. */
    void giveUp();

    /** Whether a tool stays chosen after it has drawn a shape; not at first. */
    void setToolKept(bool isKept) { m_isToolKept = isKept; }

    /** What places of the mouse go through; `done` is told when no more come. None at first. */
    void setSnap(const Snap &snap, const std::function<void()> &done)
    {
        m_snap = snap;
        m_snapDone = done;
    }

Q_SIGNALS:
    /** Another tool is chosen, or none; its cursor is that of the canvas until the next one. */
    void chosen(const QByteArray &id, const std::optional<QCursor> &cursor);

    /** What the tool does now; empty when there is nothing to say. */
    void told(const QString &words);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool viewportEvent(QEvent *event);
    bool viewEvent(QEvent *event);
    bool keyEvent(QKeyEvent &event);
    bool press(const QMouseEvent &event);
    bool move(const QMouseEvent &event);
    bool release(const QMouseEvent &event);
    void dragTo(const QPoint &pos, const QPointF &placePx, Qt::KeyboardModifiers keys);
    void showDrag();
    void finish();
    bool isMeasuring() const { return m_id == kMeasure; }
    QPointF placeOf(const QMouseEvent &event) const;
    ShapePlace placeOfDrag() const;
    QString measureOf(const ShapePlace &place) const;

    ZTGraphicsDocument &m_document;
    DocumentActions &m_actions;
    QByteArray m_id = kSelect;
    QHash<QByteArray, const char *> m_others; ///< icons of the tools of others, by id
    const ShapeKind *m_kind = nullptr;        ///< that the tool draws; null while selecting
    std::unique_ptr<ShapeItem> m_sample;      ///< a shape of that kind, in no drawing
    QTransform m_sampleTransform;             ///< of the sample at its usual size
    QRectF m_sampleBoxPx;                     ///< of its outline at that size
    Snap m_snap;
    std::function<void()> m_snapDone;
    std::optional<ToolDrag> m_drag; ///< while the button is down
    QPoint m_pressPos;              ///< viewport pixels
    QPoint m_pos;                   ///< of the mouse; viewport pixels
    bool m_isToolKept = false;
    bool m_isDragged = false; ///< the mouse has gone too far for a click
    std::unique_ptr<ToolPreview> m_preview;
    QPointer<PointerLabel> m_label; ///< child of the canvas
};

} // namespace studio
