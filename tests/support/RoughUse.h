#pragma once

#include <QtGui/QImage>
#include <QtWidgets/QGraphicsView>

class ZTGraphicsScene;

namespace testsupport {

/**
 * What a user does to a drawing whatever is in it: looks at it, selects all, drags, mirrors,
 * resizes, moves, looks again. For drawings that came from damaged data: it has to end, and well.
 */
class RoughUser
{
public:
    /** The scene outlives its user. */
    explicit RoughUser(ZTGraphicsScene &scene);

    /** Does all of it, from the middle of what the scene holds now. */
    void use();

private:
    void paint();

    ZTGraphicsScene &scene;
    QGraphicsView view;
    QImage image;
};

/** The same for a scene that is used once. */
void useRoughly(ZTGraphicsScene &scene);

} // namespace testsupport
