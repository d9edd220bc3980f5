#pragma once

#include <QtCore/QString>

class ZTAbstractGraphicsItem;

namespace hostkit {

/**
 * What a shape class implements beside the library's base if its marks can be something else than
 * what it was told to show, such as a code that cannot hold its content.
 */
class MarkReadiness
{
public:
    virtual ~MarkReadiness();

    /**
     * Why the shape does not mark what it was told, one translated sentence; empty while it does.
     *
     * Order: after the shape's `paint()`.
     */
    virtual QString notReadyReason() const = 0;
};

/** The reason of an item's shape; empty for a shape that always marks what it was told. */
QString notReadyReason(const ZTAbstractGraphicsItem &item);

} // namespace hostkit
