#pragma once

#include <hostkit/marks/MarkJob.h>

#include <vector>

namespace hostkit {

/** Text along a circle. Lengths are millimetres on the marked result, angles degrees. */
struct TextArc
{
    double diameterMm = 0.0; ///< of the circle; 0: straight lines
    double startDeg = 0.0;   ///< where the first character's share begins; 0 is three o'clock
    double spanDeg = 90.0;   ///< shared out equally; positive runs clockwise
};

/** How texts are marked. Lengths are millimetres on the marked result. */
struct TextJobOptions
{
    /** Kind of font, and the font of this kind; a stroke font as `strokeFont` gives it. */
    ZTFontParam font;

    /** Height of capital letters, greater than 0: of "H" as `capitalHeight` measures it. */
    double heightMm = 10.0;

    double charSpacingMm = 0.0; ///< added behind each character; straight lines only
    double lineSpacingMm = 0.0; ///< between what is drawn and the base line of the next line
    TextArc arc;                ///< the circle to run along; none by default

    /** Hatch, copies, gap, rotation and order. Its scale has to be 1. */
    MarkJobOptions layout;
};

/**
 * Turns texts into ordered mark paths: each text becomes one object, side by side as the drawings
 * of `buildMarkJob`, whose limits hold.
 *
 * Every text moves on to its next value first. All copies of a text show the same value. Stroke
 * fonts are not hatched.
 *
 * Letters on an arc keep their heads outward. A letter of a system font is centred on the circle;
 * one of a stroke font begins there with its upper left corner.
 *
 * Order: on the GUI thread of a `QApplication`, after `registerFactories`.
 * Failure: false with the reason; also when no text has anything to mark.
 * Limit: lines stand at whole units of the font, cut off; a hundred make its em.
 */
bool buildTextJob(std::vector<ZTVariantText> *texts, const TextJobOptions &options,
                  MarkJobResult *result, MarkJobFailure *failure);

} // namespace hostkit
