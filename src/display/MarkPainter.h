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
  // Lines over the whole height with their names at the top; a name without room beside those of
  // the lines before it stands in a lower row, and in the highest when none has room. At most
  // kMaxNamedLines.
  void NamedLines(std::span<const MarkRec> marks) const;
  // The lines between `divisions` equal parts of the height.
  void ScaleLines(std::int16_t divisions, Color color) const;
  void DrawOverlay(const Overlay& overlay) const;

 private:
  // Channels from left to right.
  struct Stretch {
    double left = 0;
    double right = 0;
  };

  bool IsShown(double channel) const { return channel >= scale_.StartX && channel <= scale_.EndX; }
  Color Ink(Color color) const { return print_.PrintMode == kFalse ? color : Rgb(0, 0, 0); }
  void VerticalLine(double channel, Color color, double opacity) const;
  // Where a text with its middle at the channel stands, moved into the surface. Sets its font.
  Stretch PlaceOf(const MarkRec& mark) const;
  // A text with its middle at its channel and its upper edge so many text heights above `y`.
  void TextAt(double y, double text_heights, const MarkRec& mark) const;
  void Range(const ChannelRange& range, double opacity) const;
  void Cross(const Overlay& overlay) const;

  Surface& surface_;
  const ViewScale& scale_;
  const PrintSettings& print_;
  HeightMap heights_;
};

}  // namespace dorvane
