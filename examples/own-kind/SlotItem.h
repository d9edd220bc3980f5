#pragma once

#include "SlotShape.h"

/**
 * A `SlotShape` in a scene. What stands as `Q_PROPERTY` is a row of the property grid, and one undo
 * step for each change there.
 */
class SlotItem : public ZTAbstractGraphicsItem
{
    Q_OBJECT
    Q_PROPERTY(double radius READ radiusMm WRITE setRadiusMm)

public:
    /** What drawing files call the kind: with a name of the host before it, it is no one else's. */
    static constexpr const char *kKind = "example.Slot";

    SlotItem();

    void copy(ZTAbstractGraphicsItem *source) override;

    double radiusMm() const { return slot().radiusMm(); }
    void setRadiusMm(double radiusMm); ///< 0 or more, millimetres

private:
    SlotShape &slot() const { return static_cast<SlotShape &>(*getShapeBase()); }
};

/** Makes `SlotItem`s. Owner: the process. */
class SlotItemFactory : public Factory
{
public:
    /**
     * Registers the kind: for the library under its type, so that shapes are added and repeated as
     * any other, and under its own name, by which drawing files find it.
     *
     * Order: once, before the first document.
     */
    static void registerKind();

    ZTAbstractGraphicsItem *create() override { return new SlotItem; }
};
