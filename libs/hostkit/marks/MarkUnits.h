#pragma once

class ZTShapeManager;

namespace hostkit {

/** How mark data measures: what a writer or a measurement needs to speak of it to others. */
struct MarkUnits
{
    double perMm = 1.0; ///< mark units in one millimetre; greater than 0

    /**
     * Whether the forms for programs, JSON and CSV, count y upward. The marks themselves, and
     * everything else that is made of them, always count it downward.
     */
    bool isYUp = false;

    /**
     * The units of mark data made with the coordinate service's present figures and a shape
     * manager's scale left as it starts: 500 to a millimetre at the defaults.
     */
    static MarkUnits current();

    /**
     * The units of mark data that `manager` makes: those of its own mark scale, sign aside. Of a
     * scale that is not the same in x and y the geometric mean is taken: no unit is right for both.
     *
     * Failure: a scale that is no number or 0 in x or y gives the usual units.
     */
    static MarkUnits of(const ZTShapeManager &manager);

    /** Millimetres of a length or coordinate in mark units. */
    double toMm(double lengthMark) const { return lengthMark / perMm; }
};

} // namespace hostkit
