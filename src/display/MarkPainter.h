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
  // Lines with their names beside their upper ends, from left to right: a line that would cross the
  // names of others ends in a row below them, while there are rows. A name stands at the right of
  // its line, at the left where it has no room there. At most kMaxNamedLines.
  void NamedLines(std::span<const MarkRec> marks) const;
  // The lines between `divisions` equal parts of the height.
  void ScaleLines(std::int16_t divisions, Color color) const;
  void DrawOverlay(const Overlay& overlay) const;

 private:
  // The name of a line; left and right are channels, rows count downwards from the top.
  struct Name {
    const MarkRec* mark = nullptr;
    double left = 0;
    double right = 0;
    int row = 0;
  };

  bool IsShown(double channel) const { return channel >= scale_.StartX && channel <= scale_.EndX; }
  Color Ink(Color color) const { return print_.PrintMode == kFalse ? color : Rgb(0, 0, 0); }
  double Up() const { return heights_.Top() >= heights_.Bottom() ? 1 : -1; }
  void VerticalLine(double channel, Color color, double opacity) const;
  // Of its text, in channels. Sets the mark's font.
  double WidthOf(const MarkRec& mark) const;
  // A text with its upper edge so many text heights above `y`, moved into the surface.
  void TextAt(double left, double y, double text_heights, const MarkRec& mark) const;
  void CentredText(double y, double text_heights, const MarkRec& mark) const;
  Name NameOf(const MarkRec& mark) const;
  static int RowOf(const Name& name, std::span<const Name> before);
  void Range(const ChannelRange& range, double opacity) const;
  void Cross(const Overlay& overlay) const;

  Surface& surface_;
  const ViewScale& scale_;
  const PrintSettings& print_;
  HeightMap heights_;
};

}  // namespace dorvane
