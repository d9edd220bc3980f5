#pragma once

namespace testsupport {

/** Registers every item factory of the library that is not registered yet, as a host does. */
void registerFactories();

} // namespace testsupport
