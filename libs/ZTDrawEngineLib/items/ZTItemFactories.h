#pragma once

#include <ZTDrawEngineLib/common/ZTSingletonTemplate.h>
#include <ZTDrawEngineLib/items/ZTGraphicsItemFactory.h>

#include <QtCore/QString>

/**
 * The library's own factories, one singleton for each kind of item.
 *
 * A host registers those whose kinds it offers:
 * `ZTGraphicsItemFactory::regist("Rect", ZTRectItemFactory::getInstance())`.
 * Owner: the singleton template; `release()` of a registered factory leaves a dangling entry.
 */

class ZTDRAWENGINELIB_EXPORT ZTRectItemFactory;
extern template class ZTSingletonTemplate<ZTRectItemFactory>;
class ZTDRAWENGINELIB_EXPORT ZTEllipseItemFactory;
extern template class ZTSingletonTemplate<ZTEllipseItemFactory>;
class ZTDRAWENGINELIB_EXPORT ZTPolygonItemFactory;
extern template class ZTSingletonTemplate<ZTPolygonItemFactory>;
class ZTDRAWENGINELIB_EXPORT ZTLineItemFactory;
extern template class ZTSingletonTemplate<ZTLineItemFactory>;
class ZTDRAWENGINELIB_EXPORT ZTTdotItemFactory;
extern template class ZTSingletonTemplate<ZTTdotItemFactory>;
class ZTDRAWENGINELIB_EXPORT ZTTextItemFactory;
extern template class ZTSingletonTemplate<ZTTextItemFactory>;
class ZTDRAWENGINELIB_EXPORT ZTVecGraphItemFactory;
extern template class ZTSingletonTemplate<ZTVecGraphItemFactory>;

/** Makes rectangles; registered under "Rect". */
class ZTDRAWENGINELIB_EXPORT ZTRectItemFactory final : public Factory,
                                                       public ZTSingletonTemplate<ZTRectItemFactory>
{
    friend class ZTSingletonTemplate<ZTRectItemFactory>;

public:
    ZTAbstractGraphicsItem *create() override;

private:
    ZTRectItemFactory() = default;
    ~ZTRectItemFactory() = default;
};

/** Makes ellipses; registered under "Ellipse". */
class ZTDRAWENGINELIB_EXPORT ZTEllipseItemFactory final
    : public Factory,
      public ZTSingletonTemplate<ZTEllipseItemFactory>
{
    friend class ZTSingletonTemplate<ZTEllipseItemFactory>;

public:
    ZTAbstractGraphicsItem *create() override;

private:
    ZTEllipseItemFactory() = default;
    ~ZTEllipseItemFactory() = default;
};

/** Makes regular polygons; registered under "Polygon". */
class ZTDRAWENGINELIB_EXPORT ZTPolygonItemFactory final
    : public Factory,
      public ZTSingletonTemplate<ZTPolygonItemFactory>
{
    friend class ZTSingletonTemplate<ZTPolygonItemFactory>;

public:
    ZTAbstractGraphicsItem *create() override;

private:
    ZTPolygonItemFactory() = default;
    ~ZTPolygonItemFactory() = default;
};

/** Makes straight lines; registered under "Line". */
class ZTDRAWENGINELIB_EXPORT ZTLineItemFactory final : public Factory,
                                                       public ZTSingletonTemplate<ZTLineItemFactory>
{
    friend class ZTSingletonTemplate<ZTLineItemFactory>;

public:
    ZTAbstractGraphicsItem *create() override;

private:
    ZTLineItemFactory() = default;
    ~ZTLineItemFactory() = default;
};

/** Makes TDOT figures; registered under "TDOT". */
class ZTDRAWENGINELIB_EXPORT ZTTdotItemFactory final : public Factory,
                                                       public ZTSingletonTemplate<ZTTdotItemFactory>
{
    friend class ZTSingletonTemplate<ZTTdotItemFactory>;

public:
    ZTAbstractGraphicsItem *create() override;

private:
    ZTTdotItemFactory() = default;
    ~ZTTdotItemFactory() = default;
};

/** Makes texts; registered under "Text". */
class ZTDRAWENGINELIB_EXPORT ZTTextItemFactory final : public Factory,
                                                       public ZTSingletonTemplate<ZTTextItemFactory>
{
    friend class ZTSingletonTemplate<ZTTextItemFactory>;

public:
    ZTAbstractGraphicsItem *create() override;

private:
    ZTTextItemFactory() = default;
    virtual ~ZTTextItemFactory() = default;
};

/** Makes imported plotter drawings; registered under "VecGraph". */
class ZTDRAWENGINELIB_EXPORT ZTVecGraphItemFactory final
    : public Factory,
      public ZTSingletonTemplate<ZTVecGraphItemFactory>
{
    friend class ZTSingletonTemplate<ZTVecGraphItemFactory>;

public:
    /** The file that the next item imports; good for one item. */
    void setPath(const QString &path);

    /** The file that the next item imports; empty when none was named since the last item. */
    const QString &path() const;

    /** An item that imports the file of the last `setPath`; one without a file if there is none. */
    ZTAbstractGraphicsItem *create() override;

private:
    ZTVecGraphItemFactory() = default;
    ~ZTVecGraphItemFactory() = default;

    QString m_nextPath;
};
