#pragma once

namespace zthatch {

/**
 * Most scan lines that one hatch lays out: thirty times what the finest laser tells apart on the
 * largest field. A drawing can bring any settings along, and takes no longer than these to open.
 */
constexpr int kMostScanLines = 1000000;

/** Most lines that one hatch is made of, beyond what a marking job takes. */
constexpr int kMostHatchLines = 25000000;

// Tell hosts that want to know, through the logging category "ZTDrawEngineLib.Hatch".
void warnOfTooManyScanLines(double spac);
void warnOfTooManyLines(double spac);
void warnOfLostSpacing(double spac);
void warnOfLackingMemory();

} // namespace zthatch
