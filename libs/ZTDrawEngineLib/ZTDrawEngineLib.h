#pragma once

/** Everything a host needs in one include. For hosts only: the library never includes it. */

#include <ZTDrawEngineLib/common/ZTEnumerations.h>
#include <ZTDrawEngineLib/common/ZTFillParam.h>
#include <ZTDrawEngineLib/common/ZTRoundingParam.h>
#include <ZTDrawEngineLib/common/ZTSingletonTemplate.h>
#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/document/ZTDrawEngineLib.h>
#include <ZTDrawEngineLib/model/ZTMarkData.h>
#include <ZTDrawEngineLib/model/ZTPointSort.h>
#include <ZTDrawEngineLib/shapes/PltCheck.h>
#include <ZTDrawEngineLib/shapes/PltReader.h>
#include <ZTDrawEngineLib/shapes/ZTEllipseShape.h>
#include <ZTDrawEngineLib/shapes/ZTLineShape.h>
#include <ZTDrawEngineLib/shapes/ZTPolygonShape.h>
#include <ZTDrawEngineLib/shapes/ZTRectShape.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>
#include <ZTDrawEngineLib/shapes/ZTTdotShape.h>
#include <ZTDrawEngineLib/shapes/ZTVecGraph.h>
#include <ZTDrawEngineLib/text/ZTTextShapeBase.h>
#include <ZTDrawEngineLib/text/ZTVariantTextManager.h>
#include <ZTMarkDataManager/ZTVariantText.h>
#include <ZTMarkDataManager/ZTVariantTextSegment.h>
