// What the scan of a spectrum works by: its control values, and a peak as the scan finds it.
#pragma once

#include <cstdint>

#include "support/Fixed.h"

namespace dorvane {

// Places in ScanInt.
inline constexpr int kListingLevel = 2;    // the residuals of a group are listed from 4 on: never
inline constexpr int kHalfWindow = 3;      // points on either side of a window's centre
inline constexpr int kRunBase = 4;         // a run of fewer than this less 2 windows is no peak yet
inline constexpr int kGroupReach = 5;      // points behind a peak after which a group is closed
inline constexpr int kIterationLimit = 6;  // of a group fit
inline constexpr int kRestartLimit = 7;    // restarts of a group fit before a peak is removed
inline constexpr int kBackgroundColumns = 8;  // of a group's first background
inline constexpr int kFirstChannel = 9;       // channel numbers, from 1
inline constexpr int kLastChannel = 10;

// Places in ScanReal.
inline constexpr int kErrorShare = 2;      // share of the curvature's error in the test
inline constexpr int kFoundWidth = 3;      // factor on the width of a peak that is found
inline constexpr int kSmallest = 4;        // determinant, height and k of a group fit
inline constexpr int kLargestChange = 5;   // of an iteration that ends a group fit
inline constexpr int kNoiseCurvature = 6;  // counts over the squared distance of two channels
inline constexpr int kSharpening = 7;      // factor on k in a restart, a whole number once rounded
inline constexpr int kSharpeningStep = 8;  // its step for each restart
inline constexpr int kZone = 9;            // zone of a peak over its width

// Control values of a scan, by their places.
struct ScanControl {
  Fixed<std::int16_t, 1, 10> ScanInt;
  Fixed<double, 1, 14> ScanReal;
};

// The values for a spectrum's channels 1..last_channel. `peak_width_ch` ("Peak Width(Ch)",
// channels) widens the groups, `bg_coef` ("BG Coefficient") is the curvature that counts as noise.
// Throws Fault(Overflow) for a width that is no 16-bit number.
ScanControl ScanSetup(double peak_width_ch, double bg_coef, int last_channel);

// A peak as the scan finds it: the starting values of its fit.
struct ScanPeak {
  double position = 0;  // channel number, from 1
  double height = 0;    // counts, background included
  double width = 0;     // channels
  double channel = 0;   // centre of the window with the sharpest curvature
};

}  // namespace dorvane
