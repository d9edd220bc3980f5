#pragma once

namespace studio {

/**
 * The distance between grid lines, millimetres: 1, 2 or 5 times a power of ten of what they count,
 * so that lines stand at least 8 pixels apart on the screen. It follows the scale of the view.
 *
 * @param fixedMm the distance that the user wants; lines stand farther apart where they would be
 *        too dense. 0: they count units of the program.
 */
double gridStepMm(double viewScale, double fixedMm = 0.0);

/** Every how many of these lines a stronger one stands: at the next power of ten. */
int gridMajorEvery(double stepMm, double fixedMm = 0.0);

} // namespace studio
