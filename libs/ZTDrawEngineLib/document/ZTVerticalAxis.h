#pragma once

#include <ZTDrawEngineLib/document/ZTAbstractAxis.h>

/**
 * Ruler along the left edge of a view, counting upward: labels have the sign flipped, unless the
 * host says otherwise.
 */
class ZTDRAWENGINELIB_EXPORT ZTVerticalAxis : public ZTAbstractAxis
{
    Q_OBJECT

public:
    explicit ZTVerticalAxis(QWidget *parent = nullptr);

    /** Lets the labels count downward, as scene y does; false in a new ruler. Repaints. */
    void setDownward(bool isDownward);
    bool isDownward() const; ///< whether the labels count downward

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_isDownward = false;
};
