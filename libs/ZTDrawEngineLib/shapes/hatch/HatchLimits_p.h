#pragma once

namespace zthatch {

/** Most scan lines that one hatch lays out. */
constexpr int kMostScanLines = 10000000;

/** Most lines that one hatch is made of; the container that holds them ends soon after. */
constexpr int kMostHatchLines = 60000000;

// Tell hosts that want to know, through the logging category "ZTDrawEngineLib.Hatch".
void warnOfTooManyScanLines(double spac);
void warnOfTooManyLines(double spac);
void warnOfLostSpacing(double spac);

} // namespace zthatch
