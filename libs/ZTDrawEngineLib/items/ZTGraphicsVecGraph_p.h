#pragma once

#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>

/** An imported plotter drawing in a scene, over `ZTVecGraph`; made by `ZTVecGraphItemFactory`. */
class ZTDRAWENGINELIB_PRIVATE_EXPORT ZTGraphicsVecGraph : public ZTAbstractGraphicsItem
{
    Q_OBJECT

public:
    ZTGraphicsVecGraph();

    /** As for every item, but the imported file is read anew. */
    void copy(ZTAbstractGraphicsItem *source) override;

    /** Hands the file to the shape; it shows at the next paint of the shape. */
    void setImagePath(QString path);
};
