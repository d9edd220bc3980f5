#pragma once

#include <ZTDrawEngineLib/common/ZTEnumerations.h>
#include <ZTDrawEngineLib/model/ZTMarkData.h>

namespace testsupport {

/** Orders the objects of a mark graph by the greedy chain in its plain form: walk, copy, erase. */
void plainMarkGraphSort(ZTMarkGraph &graph, EShapeSortType kind);

} // namespace testsupport
