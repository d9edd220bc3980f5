#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <string>

class ZTAbstractGraphicsItem;

/** Makes items of one kind; a host may derive its own. */
class ZTDRAWENGINELIB_EXPORT Factory
{
public:
    Factory() = default;
    Factory(const Factory &) = default;
    Factory &operator=(const Factory &) = default;

    /** A new item without shape type, id or scene. Owner: the caller. */
    virtual ZTAbstractGraphicsItem *create() = 0;
};

/**
 * Which kinds of shapes an application offers: a process-wide registry of factories under the names
 * that `ShapeType2String` gives.
 *
 * The library registers nothing: a host does, once at start, before the first shape is created or
 * loaded. A kind that was not registered cannot be created.
 *
 * Owner: the host; a registered factory must not be released while shapes of its kind are made.
 * Order: GUI thread only.
 */
class ZTDRAWENGINELIB_EXPORT ZTGraphicsItemFactory
{
public:
    ZTGraphicsItemFactory() = delete;

    /** Registers a factory. False, and no change, when the name is taken: the first one wins. */
    static bool regist(std::string name, Factory *factory);

    /** A new item of the factory under `name`, owned by the caller; null when there is none. */
    static ZTAbstractGraphicsItem *create(std::string name);
};
