#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <QtWidgets/QWidget>

/**
 * Base of the rulers: a strip with ticks and numbers in millimetres. Paints nothing itself.
 *
 * The library constructs none: a host puts rulers beside a view and keeps them in step with its
 * scale and its scrolling.
 */
class ZTDRAWENGINELIB_EXPORT ZTAbstractAxis : public QWidget
{
    Q_OBJECT

public:
    explicit ZTAbstractAxis(QWidget *parent = nullptr);

    double getOrigin() const;             ///< first position shown, in ticks
    void setOrigin(double v);             ///< takes the position in ruler units; repaints
    double getLength() const;             ///< extent shown, in ticks; 0 at first: no ticks
    void setLength(double v);             ///< takes the extent in ruler units; repaints
    void setPixelsPerUnit(double pixels); ///< pixels per millimetre; repaints
    double getTickStep() const;           ///< distance between ticks in ruler units
    void setTickStep(double step);        ///< stored without a repaint

    /**
     * The least of 1, 2, 2.5, 5 and 10 times a power of ten that is at least `v`, looked for within
     * the decade of `v`; 1 for a value that is not a positive finite number.
     */
    static double niceNumber(double v);

protected:
    void paintEvent(QPaintEvent *event) override;

    /** One tick of a ruler: where it stands, and its label if it is a major one. */
    struct Tick
    {
        int number;        ///< counted in ticks from the ruler's zero
        double positionPx; ///< along the ruler
        bool isMajor;
    };

    /**
     * The ticks that can be seen in a strip of that extent.
     *
     * Limit: at most 10,000, so that no setting can keep a ruler painting.
     */
    QVector<Tick> visibleTicks(double extentPx) const;

    /** Text of a major tick whose number is `number`, in millimetres. */
    QString label(int number) const;

    double origin = 0.0;
    double length = 0.0;
    double pixelsPerUnit = 0.0;
    double tickStep = 10.0;
};
