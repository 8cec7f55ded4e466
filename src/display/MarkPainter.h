// Paints what stands beside the curves of a view: marks, mark lines of the scale, and the overlay.
#pragma once

#include <cstdint>
#include <span>

#include "display/Marks.h"
#include "display/Overlay.h"
#include "display/ViewScale.h"
#include "support/Surface.h"

namespace dorvane {

// One view, its surface already scaled. Colours are those to draw with; nothing outside of the
// channels shown is drawn, and texts stay within the surface.
class MarkPainter {
 public:
  MarkPainter(Surface& surface, const ViewScale& scale, const PrintSettings& print)
      : surface_(surface), scale_(scale), print_(print), heights_(scale, print) {}

  void PeakLine(std::int16_t channel, Color color) const;
  // Centred at its channel, standing on its height.
  void TextMark(const MarkRec& mark) const;
  // Centred at its channel and height.
  void Symbol(const MarkRec& mark) const;
  // A line over the whole height with its name at the top.
  void NamedLine(const MarkRec& mark) const;
  // The lines between `divisions` equal parts of the height.
  void ScaleLines(std::int16_t divisions, Color color) const;
  void DrawOverlay(const Overlay& overlay) const;

 private:
  bool IsShown(double channel) const { return channel >= scale_.StartX && channel <= scale_.EndX; }
  Color Ink(Color color) const { return print_.PrintMode == kFalse ? color : Rgb(0, 0, 0); }
  void VerticalLine(double channel, Color color, double opacity) const;
  // A text with its middle at the channel and its upper edge so many text heights above `y`.
  void TextAt(double channel, double y, double text_heights, const MarkRec& mark) const;
  void Range(const ChannelRange& range, double opacity) const;
  void Cross(const Overlay& overlay) const;

  Surface& surface_;
  const ViewScale& scale_;
  const PrintSettings& print_;
  HeightMap heights_;
};

}  // namespace dorvane
