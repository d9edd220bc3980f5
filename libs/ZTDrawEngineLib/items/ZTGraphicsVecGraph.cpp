#include <ZTDrawEngineLib/items/ZTGraphicsVecGraph_p.h>

#include <ZTDrawEngineLib/items/ZTShapeCopy_p.h>
#include <ZTDrawEngineLib/shapes/ZTVecGraph.h>

ZTGraphicsVecGraph::ZTGraphicsVecGraph() { shape = new ZTVecGraph; }

void ZTGraphicsVecGraph::copy(ZTAbstractGraphicsItem *source)
{
    if (auto *copied = copiedShape<ZTVecGraph>(source)) {
        replaceShape(copied);
        setImagePath(copied->getImagePath());
        copied->paint();
        noteChangedGeometry();
    }
}

void ZTGraphicsVecGraph::setImagePath(QString path)
{
    if (auto *vecGraph = dynamic_cast<ZTVecGraph *>(shape))
        vecGraph->setImagePath(path);
}
