#pragma once

#include <ZTDrawEngineLib/document/ZTAbstractAxis.h>

/** Ruler along the upper edge of a view, counting to the right. */
class ZTDRAWENGINELIB_EXPORT ZTHorizontalAxis : public ZTAbstractAxis
{
    Q_OBJECT

public:
    explicit ZTHorizontalAxis(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
