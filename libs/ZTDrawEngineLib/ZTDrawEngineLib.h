#pragma once

/** Everything a host needs in one include. For hosts only: the library never includes it. */

#include <ZTDrawEngineLib/common/ZTEnumerations.h>
#include <ZTDrawEngineLib/common/ZTFillParam.h>
#include <ZTDrawEngineLib/common/ZTRoundingParam.h>
#include <ZTDrawEngineLib/common/ZTSingletonTemplate.h>
#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/document/ZTDrawEngineLib.h>
#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsEllipseItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsItemFactory.h>
#include <ZTDrawEngineLib/items/ZTGraphicsLineItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsPolygonItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsRectItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsResizeItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsScene.h>
#include <ZTDrawEngineLib/items/ZTGraphicsTdotItem.h>
#include <ZTDrawEngineLib/items/ZTItemFactories.h>
#include <ZTDrawEngineLib/items/commands/ZTItemPosCommand.h>
#include <ZTDrawEngineLib/items/commands/ZTItemPropertyCommand.h>
#include <ZTDrawEngineLib/items/commands/ZTItemTransformCommand.h>
#include <ZTDrawEngineLib/items/commands/ZTSetItemPosSizeCommand.h>
#include <ZTDrawEngineLib/model/ZTMarkData.h>
#include <ZTDrawEngineLib/model/ZTPointSort.h>
#include <ZTDrawEngineLib/shapes/PltReader.h>
#include <ZTDrawEngineLib/shapes/ZTEllipseShape.h>
#include <ZTDrawEngineLib/shapes/ZTLineShape.h>
#include <ZTDrawEngineLib/shapes/ZTPolygonShape.h>
#include <ZTDrawEngineLib/shapes/ZTRectShape.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>
#include <ZTDrawEngineLib/shapes/ZTTdotShape.h>
#include <ZTDrawEngineLib/shapes/ZTVecGraph.h>
