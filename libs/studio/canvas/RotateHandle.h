#pragma once

#include <studio/shapes/ShapeItems.h>

#include <QtCore/QObject>

#include <memory>

namespace studio {

class DocumentActions;
class PointerLabel;
class RotateKnob;
class ToolPreview;

/**
 * The handle above the selection frame that turns what is selected about the middle of the frame.
 * The outline turns along; the shapes do on release, as one undo step. Shift turns by steps of 15
 * degrees, Esc gives up. Angles count counter-clockwise.
 */
class RotateHandle : public QObject
{
    Q_OBJECT

public:
    /** Both are borrowed and outlive this. */
    RotateHandle(ZTGraphicsDocument &document, DocumentActions &actions, QObject *parent = nullptr);
    ~RotateHandle() override;

    /** While another tool edits what is selected, the handle is out of the way. */
    void setResting(bool isResting);
    bool isShown() const;

    /** Middle of the handle on the screen; viewport pixels. */
    QPoint place() const;

Q_SIGNALS:
    /** The angle while it is dragged; empty afterwards. */
    void told(const QString &words);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    friend class RotateKnob;

    void follow();
    void begin(const QPointF &placePx);
    void dragTo(const QPointF &placePx, const QPointF &scenePos, Qt::KeyboardModifiers keys);
    void finish();
    void giveUp();
    double angleAt(const QPointF &placePx) const;

    ZTGraphicsDocument &m_document;
    DocumentActions &m_actions;
    std::unique_ptr<RotateKnob> m_knob;
    std::unique_ptr<ToolPreview> m_preview; ///< while it is dragged
    QPointer<PointerLabel> m_label;         ///< child of the canvas
    bool m_isResting = false;
    QPointF m_middlePx;      ///< of the frame when the drag began
    double m_startDeg = 0.0; ///< where the mouse stood then
    double m_turnDeg = 0.0;  ///< since then, counter-clockwise
};

} // namespace studio
