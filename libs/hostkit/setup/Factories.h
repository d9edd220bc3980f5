#pragma once

class Factory;

namespace hostkit {

/**
 * Registers a factory for each kind of shape that the library offers, once; further calls change
 * nothing. They are the library's own, but for texts: those are `TextItem`s, each at its own
 * height.
 *
 * Order: before the first document. A factory that a host registered for a kind before stays.
 */
void registerFactories();

/** Makes imported drawings, empty ones without a look for a file. Owner: the process. */
Factory *importFactory();

} // namespace hostkit
