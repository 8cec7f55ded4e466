// The plot of how far each indexed line lies from where the cell has it, against its d.
#pragma once

#include <span>

#include "support/Surface.h"

namespace dorvane {

struct DeviationPoint {
  double d = 0;          // observed, angstrom
  double deviation = 0;  // angstrom, positive where the observed d is the larger
  bool excluded = false;
};

// One kind of deviation.
struct DeviationSeries {
  const char* name = "";
  Color color = 0;
  std::span<const DeviationPoint> points;
};

struct DeviationColors {
  Color ground = 0;
  Color axis = 0;      // zero line and labels
  Color grid = 0;      // rulings
  Color excluded = 0;  // points of excluded lines
};

// Clears the surface and draws d to the right, deviations upwards on a scale that is the same on
// both sides of the zero line, with round steps. Without points the zero line alone, and `hint`
// over it. Of an excluded point the scale takes no notice where it would squeeze the others to less
// than a quarter of the height; it then stands at the edge.
void DrawDeviationPlot(Surface& surface, std::span<const DeviationSeries> series,
                       const DeviationColors& colors, const char* hint);

}  // namespace dorvane
