#pragma once

class ZTGraphicsScene;

namespace testsupport {

/**
 * What a user does to a drawing whatever is in it: looks at it, selects all, drags, mirrors,
 * resizes, moves, looks again. For drawings that came from damaged data: it has to end, and well.
 */
void useRoughly(ZTGraphicsScene &scene);

} // namespace testsupport
