// The plot of an energy calibration: the curve of the energy over the channels with the points it
// was taken from, and below it how far each point lies from the curve.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "support/Surface.h"
#include "workspace/SpectrumRec.h"

namespace dorvane {

struct CalibrationCurve {
  std::span<const Point> points;  // x: channel index, y: energy in keV
  EgcCoef coefficients{};         // energy in keV of channel index x: A + B*x + C*x*x
  int last_channel = 0;           // the curve runs from 0 to it, or to the outermost point if that
                                  // lies beyond
  std::string memo = {};          // second line of the title; empty: none
};

struct CalibrationColors {
  Color ground = 0;
  Color axis = 0;  // frame, ticks and texts
  Color grid = 0;
  Color curve = 0;
  Color point = 0;
};

// How far a point lies above the curve, in eV.
double ResidualEv(const CalibrationCurve& curve, const Point& point);

// The number picture of an axis's labels by the size of its step; `channels` for the axis of
// channels.
std::string_view TickPicture(double step, bool channels = false);

// Clears the surface and draws both panels over one axis of channels, with round steps; without
// points the curve alone. Of values that are not finite nothing is drawn. A surface too small for
// the panels stays empty.
void DrawCalibrationPlot(Surface& surface, const CalibrationCurve& curve,
                         const CalibrationColors& colors);

}  // namespace dorvane
