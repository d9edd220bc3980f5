#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>
#include <ZTDrawEngineLib/model/ZTMarkData.h>

#include <functional>
#include <vector>

/**
 * Order in which a greedy chain from `start` takes the objects, as indices into `objects`.
 *
 * Each step takes, of the remaining objects, the one whose first point costs least to reach, the
 * earliest of equals; the first one when none costs less than 999999999999999.0. Objects without
 * polygons are passed over, and an object with an empty first polygon hides those behind it. The
 * next step starts from the first point of the last polygon. The chain ends behind an object
 * without polygons or with an empty last one, so there may be fewer indices than objects.
 */
std::vector<int> greedyChain(const QVector<ZTMarkObject> &objects,
                             const std::function<double(const QPointF &, const QPointF &)> &cost,
                             const QPointF &start);
