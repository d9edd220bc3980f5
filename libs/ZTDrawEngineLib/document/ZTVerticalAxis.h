#pragma once

#include <ZTDrawEngineLib/document/ZTAbstractAxis.h>

/** Ruler along the left edge of a view, counting upward: labels have the sign flipped. Internal. */
class ZTDRAWENGINELIB_PRIVATE_EXPORT ZTVerticalAxis : public ZTAbstractAxis
{
    Q_OBJECT

public:
    explicit ZTVerticalAxis(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
