#pragma once

#include <jobkit/plan/Tour_p.h>

namespace jobkit {

/** Stops up to this many are put in the shortest order there is. */
constexpr int kFewStops = 6;

/** The shortest sequence of at most `kFewStops` stops, found by trying all. */
std::vector<Tour::Visit> shortestOfAll(const std::vector<TourStop> &stops, const QPointF *head);

} // namespace jobkit
