#pragma once

namespace hostkit {

/**
 * Registers a factory for each kind of shape that the library offers, once; further calls change
 * nothing. They are the library's own, but for texts: those are `TextItem`s, each at its own
 * height.
 *
 * Order: before the first document. A factory that a host registered for a kind before stays.
 */
void registerFactories();

} // namespace hostkit
