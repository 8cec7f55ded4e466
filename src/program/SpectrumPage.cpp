#include "program/SpectrumPage.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "display/DrawScale.h"
#include "processing/Calc.h"
#include "support/Rounding.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

constexpr int kPageView = 2;
constexpr double kTitlePoints = 13;
constexpr double kTextPoints = 10;
constexpr double kMargin = 16;
constexpr double kCountAxisWidth = 52;
constexpr double kUnitAxisHeight = 44;
constexpr double kHeadGap = 6;       // pixels between the head's lines and the graph
constexpr double kLabelGap = 4;      // pixels between counts and label
constexpr double kLabelPadding = 3;  // pixels between labels
constexpr double kLeaderFrom = 8;    // a label so far above its place gets a line down to it
constexpr double kHeadRoom = 1.18;   // of the height over the largest count
constexpr int kUnitDivisions = 10;
constexpr double kCurveStep = 0.25;  // channels between two points of a fitted line
constexpr double kFitWidth = 1.5;
constexpr double kTickRoom = 8;  // pixels between the names of counts and the count axis
constexpr std::int32_t kLogNominal = 10000000;
constexpr std::string_view kCountsName = "counts";

struct Plot {
  double x = 0, y = 0, width = 0, height = 0;
};

// Boxes in pixels of the plot.
struct TextBox {
  double left = 0, top = 0, right = 0, bottom = 0;
};

bool Overlap(const TextBox& a, const TextBox& b) {
  return a.left < b.right + kLabelPadding && b.left < a.right + kLabelPadding && a.top < b.bottom &&
         b.top < a.bottom;
}

struct PlacedLabel {
  TextBox box;
  double x = 0;  // of the peak
  std::string_view text;
};

Color Mixed(Color a, Color b) {
  const auto half = [](Color x, Color y, int shift) {
    return (((x >> shift) & 0xFF) + ((y >> shift) & 0xFF)) / 2;
  };
  return Rgb(half(a, b, 0), half(a, b, 8), half(a, b, 16));
}

// First and last channel shown, at least two.
struct Channels {
  int first = 0;
  int last = 1;
};

Channels ShownChannels(const SpectrumPage& content, const ChannelBlock& block) {
  Channels shown{std::clamp(content.first_channel, 0, kMaxChannels - 2), content.last_channel};
  if (shown.last <= shown.first) shown.last = block.Count - 1;
  shown.last = std::clamp(shown.last, shown.first + 1, kMaxChannels - 1);
  return shown;
}

std::int32_t LargestCount(const ChannelBlock& block, const Channels& shown) {
  std::int32_t largest = 0;
  for (int i = shown.first; i <= shown.last; ++i) largest = std::max(largest, block.Counts[i]);
  return largest;
}

// The smallest height of the count axis that leaves room for labels.
std::int32_t HeightFor(std::int32_t largest) {
  for (int index = 0; index < kScaleSteps; ++index) {
    if (ScaleValue(index) >= kHeadRoom * largest) return ScaleValue(index);
  }
  return std::max(largest, ScaleValue(kScaleSteps - 1));
}

// A peak of a group has no region and no background of its own.
bool FittedInGroup(const PeakRec& peak) {
  return peak.RegionEnd <= peak.RegionStart;
}

// Where a fitted line is drawn, channel indices: its region, or one FWHM on either side.
std::pair<double, double> DrawnChannels(const PeakRec& peak) {
  if (!FittedInGroup(peak)) return {peak.RegionStart, peak.RegionEnd};
  const double fwhm = 2 * peak.HalfWidth;
  return {peak.Center - fwhm, peak.Center + fwhm};
}

// Whether a peak has a curve.
bool IsFitted(const PeakRec& peak) {
  return peak.FitDone == kTrue && peak.HalfWidth > 0;
}

// Counts of a fitted line at a channel index with a fraction.
double LineCounts(const PeakRec& peak, double channel) {
  const std::array shape{peak.GaussRatio * peak.Height, peak.Center, peak.HalfWidth,
                         (1 - peak.GaussRatio) * peak.Height};
  int error = 0;
  return MixFunc(channel, shape, error);
}

// Level on which a peak of a group stands: the mean of what all lines leave of the counts about it.
// The background of its fit belongs to the middle of the group.
double LevelUnder(const PeakRec& peak, const PeakTable& table, const ChannelBlock& block) {
  const auto [start, end] = DrawnChannels(peak);
  const int first = static_cast<int>(std::clamp<double>(std::ceil(start), 0, block.Count));
  const int last = static_cast<int>(std::clamp<double>(std::floor(end), -1, block.Count - 1));
  double left = 0;
  for (int channel = first; channel <= last; ++channel) {
    left += block.Counts[channel];
    for (int k = 0; k < table.Count; ++k) {
      if (IsFitted(table.Peaks[k])) left -= LineCounts(table.Peaks[k], channel);
    }
  }
  return last < first ? 0 : left / (last - first + 1);
}

// Counts of the background of a single peak; its slope counts from 1 at the start of the region, as
// the fit does.
double OwnBackground(const PeakRec& peak, double channel) {
  return peak.BackConst + peak.BackSlope * (channel - peak.RegionStart + 1);
}

// Lends the engine a surface for the page; it has none afterwards, come what may.
class LentSurface {
 public:
  LentSurface(DrawSpect& spect, Surface& surface) : spect_(spect) {
    spect_.SetSurface(kPageView, &surface);
  }
  LentSurface(const LentSurface&) = delete;
  LentSurface& operator=(const LentSurface&) = delete;
  ~LentSurface() { spect_.SetSurface(kPageView, nullptr); }

 private:
  DrawSpect& spect_;
};

class PagePainter {
 public:
  PagePainter(Program& program, const SpectrumPage& content, const PanelMaker& make_panel)
      : program_(program),
        content_(content),
        make_panel_(make_panel),
        colors_(program.workspace.ColorTbl),
        block_(program.workspace.Channels[content.data_no]),
        shown_(ShownChannels(content, block_)) {}

  void Paint(double width, double height) {
    const Color ground = colors_[kColorWindowBack];
    const auto page = make_panel_(0, 0, width, height);
    page->Clear(ground);
    const double head = Head(*page);
    plot_.x = kMargin + kCountAxisWidth;
    plot_.y = head + kHeadGap;
    plot_.width = std::max(width - plot_.x - kMargin, 1.0);
    plot_.height = std::max(height - plot_.y - kUnitAxisHeight - kMargin / 2, 1.0);

    const auto graph = make_panel_(plot_.x, plot_.y, plot_.width, plot_.height);
    DrawGraph(*graph, ground);
    DrawFits(*graph);
    DrawLabels(*graph);
    DrawFrame(*page);
    DrawAxes();
  }

 private:
  // Title and details above the graph, the count axis's name above that axis; the lower edge of it
  // all.
  double Head(Surface& page) const {
    const Color ink = colors_[kColorAxis];
    double y = kMargin * 0.6;
    page.SetFontSize(kTitlePoints);
    page.Text({kMargin + kCountAxisWidth, y}, content_.title, ink);
    y += page.TextHeight() + kHeadGap / 2;
    page.SetFontSize(kTextPoints);
    if (!content_.details.empty()) page.Text({kMargin + kCountAxisWidth, y}, content_.details, ink);
    y += page.TextHeight();
    page.Text({kMargin + kCountAxisWidth - kTickRoom - page.TextWidth(kCountsName), y}, kCountsName,
              ink);
    return y + page.TextHeight();
  }

  void DrawGraph(Surface& graph, Color ground) {
    DrawSpect& spect = program_.spect;
    axis_height_ = content_.log_scale ? kLogDecades : HeightFor(LargestCount(block_, shown_));
    spect.CopyView(kPageView, nullptr, ground);
    spect.SetDrawMode(kPageView, kDrawDot);
    spect.SetYScale(kPageView, content_.log_scale ? kLogarithmic : kLinear,
                    content_.log_scale ? kLogNominal : axis_height_);
    spect.SetStartX(kPageView, 0);
    spect.SetWidthX(kPageView, ToInt16(shown_.last - shown_.first + 1));
    spect.SetStartX(kPageView, ToInt16(shown_.first));
    spect.SetDivisions(kPageView, CountTicksOf(axis_height_).Divisions);
    const LentSurface lent(spect, graph);
    // Paler than on the screen, where the lines are also handles.
    spect.SetMarkColors(Mixed(colors_[kColorPeakMark], ground), colors_[kColorGrid]);
    spect.Redraw(kPageView);
    spect.SetMarkColors(colors_[kColorPeakMark], colors_[kColorGrid]);
  }

  double XOf(double channel) const {
    return (channel - shown_.first) / (shown_.last - shown_.first) * plot_.width;
  }
  // Place of a count, in pixels from the top of the plot.
  double YOf(double counts) const {
    double share = counts / axis_height_;
    if (content_.log_scale) share = counts > 1 ? std::log10(counts) / kLogDecades : 0;
    return plot_.height * (1 - std::clamp(share, 0.0, 1.0));
  }

  void DrawFits(Surface& graph) const {
    graph.SetScale(0, 0, plot_.width, plot_.height);
    const double old_width = graph.LineWidth();
    graph.SetLineWidth(kFitWidth);
    const PeakTable& table = program_.workspace.Peaks[content_.data_no];
    for (int k = 0; k < table.Count; ++k) {
      const PeakRec& peak = table.Peaks[k];
      if (IsFitted(peak)) graph.Lines(FittedLine(peak, table), colors_[kColorFitCurve]);
    }
    graph.SetLineWidth(old_width);
  }

  std::vector<Segment> FittedLine(const PeakRec& peak, const PeakTable& table) const {
    const auto [start, end] = DrawnChannels(peak);
    const double first = std::max<double>(start, shown_.first);
    const double last = std::min<double>(end, shown_.last);
    const bool in_group = FittedInGroup(peak);
    const double level = in_group ? LevelUnder(peak, table, block_) : 0;
    const auto place = [&](double channel) {
      const double background = in_group ? level : OwnBackground(peak, channel);
      return Point{XOf(channel), YOf(LineCounts(peak, channel) + background)};
    };
    std::vector<Segment> line;
    for (double channel = first; channel + kCurveStep <= last; channel += kCurveStep) {
      const Segment segment{place(channel), place(channel + kCurveStep)};
      // The peaks of a file may hold what is no number.
      if (std::isfinite(segment.from.y) && std::isfinite(segment.to.y)) line.push_back(segment);
    }
    return line;
  }

  // Upper edge of what is drawn between two places of the plot.
  double SkyOf(double left, double right) const {
    const double channels = shown_.last - shown_.first;
    const auto channel_at = [&](double x) { return shown_.first + x / plot_.width * channels; };
    const int from = std::max(static_cast<int>(std::floor(channel_at(left))), shown_.first);
    const int to = std::min(static_cast<int>(std::ceil(channel_at(right))), shown_.last);
    std::int32_t largest = 0;
    for (int i = from; i <= to; ++i) largest = std::max(largest, block_.Counts[i]);
    return YOf(largest);
  }

  // Boxes of the labels that have room, in the order of the labels; the earlier ones stand lower.
  std::vector<PlacedLabel> PlaceLabels(const Surface& graph) const {
    const double text_height = graph.TextHeight();
    std::vector<PlacedLabel> placed;
    for (const PageLabel& label : content_.labels) {
      if (!(label.channel >= shown_.first && label.channel <= shown_.last)) continue;
      const double x = XOf(label.channel);
      const double text_width = graph.TextWidth(label.text);
      const double left =
          std::clamp(x - text_width / 2, 0.0, std::max(plot_.width - text_width, 0.0));
      const double bottom = SkyOf(left, left + text_width) - kLabelGap;
      TextBox box{left, bottom - text_height, left + text_width, bottom};
      const auto collides = [&] {
        return std::any_of(placed.begin(), placed.end(),
                           [&](const PlacedLabel& other) { return Overlap(box, other.box); });
      };
      while (box.top >= 0 && collides()) {
        box.top -= text_height / 2;
        box.bottom -= text_height / 2;
      }
      if (box.top >= 0) placed.push_back({box, x, label.text});
    }
    return placed;
  }

  // Lines down to the peaks first, so that they pass behind the labels.
  void DrawLabels(Surface& graph) const {
    graph.SetScale(0, 0, plot_.width, plot_.height);
    graph.SetFontSize(kTextPoints);
    const Color ground = colors_[kColorWindowBack];
    const Color pale = Mixed(colors_[kColorAxis], ground);
    const std::vector<PlacedLabel> placed = PlaceLabels(graph);
    for (const auto& [box, x, text] : placed) {
      const double foot = SkyOf(x - 1, x + 1) - kLabelGap / 2;
      if (foot - box.bottom > kLeaderFrom) graph.Box({x, box.bottom}, {x, foot}, pale, 1);
    }
    for (const auto& [box, x, text] : placed) {
      graph.Box({box.left - 1, box.top}, {box.right + 1, box.bottom}, ground, 1);
      graph.Text({box.left, box.top}, text, colors_[kColorAxis]);
    }
  }

  void DrawFrame(Surface& page) const {
    const Color ink = colors_[kColorAxis];
    const Color pale = Mixed(ink, colors_[kColorWindowBack]);
    const Point upper_left{plot_.x, plot_.y};
    const Point lower_right{plot_.x + plot_.width, plot_.y + plot_.height};
    page.Box(upper_left, {lower_right.x, upper_left.y}, pale, 1);
    page.Box(upper_left, {upper_left.x, lower_right.y}, ink, 1);
    page.Box({upper_left.x, lower_right.y}, lower_right, ink, 1);
    page.Box({lower_right.x, upper_left.y}, lower_right, pale, 1);
    page.SetFontSize(kTextPoints);
  }

  void DrawAxes() const {
    const Color ink = colors_[kColorAxis];
    const auto counts =
        make_panel_(plot_.x - kCountAxisWidth, plot_.y, kCountAxisWidth, plot_.height);
    DrawCountAxis(*counts, axis_height_, ink);
    const auto units = make_panel_(plot_.x, plot_.y + plot_.height, plot_.width, kUnitAxisHeight);
    const double channels = shown_.last - shown_.first + 1;
    DrawUnitAxis(*units, program_.workspace, content_.data_no, content_.unit, kUnitDivisions,
                 channels, shown_.first, ink);
  }

  Program& program_;
  const SpectrumPage& content_;
  const PanelMaker& make_panel_;
  const ColorTable& colors_;
  const ChannelBlock& block_;
  const Channels shown_;
  Plot plot_;
  std::int32_t axis_height_ = 10;
};

}  // namespace

void DrawSpectrumPage(Program& program, const SpectrumPage& content, double width, double height,
                      const PanelMaker& make_panel) {
  PagePainter(program, content, make_panel).Paint(width, height);
}

}  // namespace dorvane
