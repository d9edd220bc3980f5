#pragma once

#include <ZTDrawEngineLib/common/ZTSingletonTemplate.h>

#include <QtGui/QTransform>

class ZTDRAWENGINELIB_EXPORT ZTCoord;
extern template class ZTSingletonTemplate<ZTCoord>;

/**
 * Where millimetres, scene pixels and mark units meet: every conversion goes through here.
 *
 * The figures describe a reference screen and a marking field, not the actual screen. The library
 * never calls a setter: the host sets the figures, or the defaults stand. Only the vertical ones
 * scale anything; the horizontal ones are stored and returned, so that a circle stays a circle
 * whatever the host sets.
 *
 * At the defaults one millimetre is 900 / 193 scene pixels, and one scene pixel about 107.2 mark
 * units. A change reaches later conversions only: what an item stored in pixels stays.
 */
class ZTDRAWENGINELIB_EXPORT ZTCoord : public ZTSingletonTemplate<ZTCoord>
{
    friend class ZTSingletonTemplate<ZTCoord>;

public:
    double getWidth() const;               ///< reference screen width in pixels, 1600
    void setWidth(double width);           ///< stored only
    double getHeight() const;              ///< reference screen height in pixels, 900
    void setHeight(double height);         ///< scales every later conversion
    double getPhysicalWidth() const;       ///< reference screen width in millimetres, 343.126
    void setPhysicalWidth(double mm);      ///< stored only
    double getPhysicalHeight() const;      ///< reference screen height in millimetres, 193
    void setPhysicalHeight(double mm);     ///< scales every later conversion
    double getDisplayRatio() const;        ///< extra scale factor of the display, 1
    void setDisplayRatio(double ratio);    ///< scales every later conversion; 0 is allowed
    double getDistance() const;            ///< marking distance in mark units, 131070
    void setDistance(double distanceMark); ///< changes `speed2ratio` and `screen2mark`

    /** Scene pixels of a length in millimetres. */
    double mm2pix(double mm) const;

    /** Millimetres of a length in scene pixels; 1e-08 for any length when a pixel has no size. */
    double pix2mm(double pix) const;

    /** Millimetres to scene pixels, the same factor in x and y. */
    QTransform getMm2pixTransform() const;

    /** Scene pixels to millimetres. Not finite while `mm2pix(1.0)` is 0. */
    QTransform getPix2MmTransform() const;

    /** Share of the marking field's speed range that the speed `v` takes. */
    double speed2ratio(double v) const;

    /** Factor from scene pixels to mark units. */
    double screen2mark() const;

private:
    ZTCoord();
    ~ZTCoord() = default;

    double m_physicalWidth = 343.126;
    double m_physicalHeight = 193.0;
    double m_width = 1600.0;
    double m_height = 900.0;
    double m_displayRatio = 1.0;
    double m_fieldScale = 10.0;    ///< factor of the marking field
    double m_fieldUnits = 65535.0; ///< full count of the marking field's coordinates
    double m_distance = 131070.0;
    double m_fieldExtent = m_fieldUnits * m_fieldScale;
    double m_markRatio = 2.0;    ///< distance / fieldUnits
    double m_speedRatio = 200.0; ///< distance / fieldExtent * 1000
};
