#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

class ZTGraphicsDocument;
class ZTHorizontalAxis;
class ZTVerticalAxis;

namespace hostkit {

/**
 * A document with rulers above it and to its left. They count lengths from the scene's origin,
 * x to the right, and follow scrolling, zoom and size.
 */
class ViewRulers : public QWidget
{
    Q_OBJECT

public:
    /** Thickness of a ruler in pixels. */
    static constexpr int kThickness = 20;

    /** Takes the document in as its child, so that a host shows this widget instead. */
    explicit ViewRulers(ZTGraphicsDocument *document, QWidget *parent = nullptr);
    ~ViewRulers() override;

    ZTHorizontalAxis &horizontal() const { return *m_horizontal; } ///< the ruler above
    ZTVerticalAxis &vertical() const { return *m_vertical; }       ///< the ruler to the left

    /** Shows or hides both; the document takes their room. */
    void setRulersVisible(bool areVisible);

    /** What they count, in millimetres; 1 at first. */
    void setUnitMm(double unitMm);

    /** Whether they show, or will when this widget does. */
    bool areRulersVisible() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void follow();

    QPointer<ZTGraphicsDocument> m_document; ///< child
    ZTHorizontalAxis *m_horizontal;          ///< child
    ZTVerticalAxis *m_vertical;              ///< child
    double m_unitMm = 1.0;
    QWidget *m_corner; ///< child; white as they are
};

} // namespace hostkit
