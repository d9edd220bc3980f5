#pragma once

#include <studio/canvas/Snapping.h>
#include <studio/shapes/ShapeItems.h>

#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <memory>
#include <optional>

QT_BEGIN_NAMESPACE
class QMouseEvent;
QT_END_NAMESPACE

namespace studio {

class CanvasLines;

/** What attracts. */
struct SnapChoice
{
    bool toShapes = true; ///< edges, middles and ends of other shapes
    bool toGuides = true;
    bool toGrid = false;
};

/**
 * Lets what is dragged on the canvas rest where something is: selected shapes that are moved or
 * resized by their frame, and places for those who ask. Lines show why. Ctrl suspends it.
 *
 * While a handle of the frame is dragged, Shift keeps the proportions.
 */
class SnapTools : public QObject
{
    Q_OBJECT

public:
    /** `document` is borrowed and outlives this. */
    explicit SnapTools(ZTGraphicsDocument &document, QObject *parent = nullptr);
    ~SnapTools() override;

    const SnapChoice &choice() const { return m_choice; }
    void setChoice(const SnapChoice &choice); ///< and keeps it for this user

    /** Distance of the grid's lines in millimetres; 0, as at first: they follow the zoom. */
    void setGridMm(double fixedMm) { m_gridMm = fixedMm; }

    /** Where a place comes to, and shows why; until `hide`. Frame: scene pixels. */
    QPointF place(const QPointF &placePx, Qt::KeyboardModifiers keys);

    /** The same of a line across the canvas: of its x if it is upright, else of its y. */
    double line(Qt::Orientation orientation, double atPx, Qt::KeyboardModifiers keys);

    /** Nothing is dragged any more. */
    void hide();

Q_SIGNALS:
    /** What it snaps to now; empty when nothing. */
    void told(const QString &words);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /** A drag of the frame or of one of its handles. */
    struct FrameDrag
    {
        QRectF boxPx;   ///< of the frame when it began
        QPointF anchor; ///< share of the box at which the handle stands; of the frame none
        bool isMove = true;
    };

    bool press(const QMouseEvent &event);
    bool move(const QMouseEvent &event);
    std::optional<FrameDrag> dragUnderWay() const;
    SnapFeatures featuresOf(const FrameDrag &drag, const QPointF &wayPx) const;
    void moveTo(const QMouseEvent &event, const QPointF &placePx);
    static QPointF handlePlace(const FrameDrag &drag, const QPointF &wayPx);
    void pullEdges(const FrameDrag &drag, const QPointF &handlePx, const QPointF &shiftPx) const;
    void keepShape(const FrameDrag &drag, bool keepsProportions) const;
    void collectTargets(const ShapeItems &moving);
    SnapResult snap(const SnapFeatures &features, Qt::KeyboardModifiers keys);
    void show(const SnapResult &result);

    ZTGraphicsDocument &m_document;
    SnapChoice m_choice;
    double m_gridMm = 0.0;
    SnapTargets m_targets;
    bool m_hasTargets = false;       ///< of the drag that is under way
    QPoint m_pressPos;               ///< viewport pixels
    QPointF m_pressPx;               ///< the same place as the scene was told it
    QPointF m_lastPx;                ///< that the scene was told last
    std::optional<FrameDrag> m_drag; ///< since the mouse has moved
    std::unique_ptr<CanvasLines> m_lines;
};

} // namespace studio
