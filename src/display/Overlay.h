// What moves over a drawn graph without a redraw: cursor, area cursor, range mark and region boxes.
#pragma once

#include <cstdint>
#include <span>

#include "support/Surface.h"

namespace dorvane {

enum class CursorForm {
  Line,   // from the bottom to the top
  Cross,  // small, at the count
};

// A stretch of channels. An end of -1 isn't set: it is not drawn, and the box needs both.
struct ChannelRange {
  bool On = false;
  std::int16_t Start = -1;
  std::int16_t End = -1;
  dorvane::Color Color = 0;
};

struct Overlay {
  bool CursorOn = false;
  CursorForm Form = CursorForm::Line;
  double CursorChannel = 0;      // channel index, with a fraction after a jump to a peak
  std::int32_t CursorCount = 0;  // where the cross stands
  Color CursorColor = 0;
  ChannelRange Area = {};   // the area cursor
  ChannelRange Range = {};  // the part of this view that another one shows
  std::span<const ChannelRange> Regions = {};
};

}  // namespace dorvane
