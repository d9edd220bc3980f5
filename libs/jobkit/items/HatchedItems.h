#pragma once

namespace jobkit {

/**
 * Registers, for every kind of shape with an inside, a factory of items that draw all their
 * hatches, each in its own pen, and texts that unite overlapping outlines. They are the library's
 * and `hostkit`'s items in everything else. Further calls change nothing.
 *
 * Also gives the process its `hostkit::hatchDrawer`, through which codes draw all their hatches.
 *
 * Order: before `hostkit::registerFactories`, which leaves what is registered; before the first
 * document.
 */
void registerHatchedFactories();

} // namespace jobkit
