#pragma once

namespace hostkit {

/**
 * Registers the factories of all kinds of shapes that the library offers, once; further calls
 * change nothing. A host calls it before the first document.
 */
void registerFactories();

} // namespace hostkit
