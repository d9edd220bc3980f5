#pragma once

namespace studio {

/**
 * The distance between grid lines, millimetres: 1, 2 or 5 times a power of ten, so that lines stand
 * at least 8 pixels apart on the screen. It follows the scale of the view.
 */
double gridStepMm(double viewScale);

/** Every how many of these lines a stronger one stands: at the next power of ten. */
int gridMajorEvery(double stepMm);

} // namespace studio
