#pragma once

namespace testsupport {

/**
 * Runs the test program once more from a new folder of its own, and returns its exit code there.
 *
 * For tests of what stands beside the program: no other test sees their files. Call it first in
 * `main`, and go on with the test when it returns -1: that is the second run.
 */
int runInOwnFolder(int argc, char **argv);

} // namespace testsupport
