#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>
#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>

#include <QtCore/QPointF>
#include <QtCore/QRect>
#include <QtWidgets/QGraphicsView>

class ZTAbstractAxis;

/**
 * View of a document: a zoom with fixed limits, a millimetre grid with axes and work area behind
 * the scene, and the double-click signal.
 *
 * The transform is a uniform scale set from one number; panning uses the scroll position, and the
 * scroll bars are hidden. Control and the wheel zoom about the point under the cursor.
 *
 * Owner: the document's form.
 */
class ZTDRAWENGINELIB_EXPORT ZTGraphicsView : public QGraphicsView
{
    Q_OBJECT

public:
    explicit ZTGraphicsView(QWidget *parent = nullptr);

    /** Zooms in by 1.2 unless the scale is 20 or more: the last step may end just below 24. */
    void zoomIn();

    /** Zooms out by 1.2 unless the scale is 0.09 or less: the last step ends above 0.075. */
    void zoomOut();

    /** Sets any scale, also one outside the limits of zooming. */
    void resetSize(double newScale);

    /** Stores the scale and replaces the view's transform. Not limited. */
    void setScale(double newScale);

    /** Device pixels per scene pixel, 1 in a new view. */
    double getDisplayScale() const;

    /** Work area in millimetres, 600 by 600 around the origin in a new view. */
    QRect getWorkArea() const;

    /** Stores the work area; it shows at the next repaint, which this does not ask for. */
    void setWorkArea(QRect areaMm);

    /** Shows or hides the grid; axes and work area stay. Repaints. For hosts with a grid of theirs.
     */
    void setGridVisible(bool isVisible);
    bool isGridVisible() const; ///< true in a new view

Q_SIGNALS:
    /** An item, or a handle of the selection frame (then null), was double-clicked. */
    void sigOnItemDouble(ZTAbstractGraphicsItem *item = nullptr);

protected:
    void wheelEvent(QWheelEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void drawBackground(QPainter *painter, const QRectF &rect) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    double m_scale = 1.0;
    ZTAbstractAxis *m_horizontalRuler = nullptr; ///< reserved for a ruler; stays null
    ZTAbstractAxis *m_verticalRuler = nullptr;   ///< reserved for a ruler; stays null
    QPointF m_scrollOffset;                      ///< running sum of scrolling, for a ruler
    bool m_isGridVisible = true;
    QRect m_workArea{-300, -300, 600, 600}; ///< millimetres
};
