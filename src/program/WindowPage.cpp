#include "program/WindowPage.h"

#include <algorithm>
#include <memory>
#include <span>
#include <vector>

#include "display/DrawScale.h"
#include "program/EditText.h"
#include "program/WindowContent.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

constexpr Color kPaper = Rgb(255, 255, 255);
constexpr Color kPrintInk = Rgb(0, 0, 0);
constexpr double kTextPoints = 10;
constexpr double kSmallestPoints = 6;
constexpr double kLeastPlotShare = 0.4;  // of the sheet, whatever the property lines take
constexpr double kLineGap = 1.25;        // from line to line, in text heights
constexpr double kColumnGap = 24;        // pixels
constexpr double kLegendSample = 24;     // pixels
constexpr double kLegendMargin = 6;
constexpr double kLegendOpacity = 0.8;

// How a window is drawn on its page.
struct Look {
  PrintSettings print;
  std::int16_t dot_step = 1;
  Color ground = 0;
  Color ink = 0;
};

// Lends a window's place in the engine to a page; the window is as before afterwards.
class LentView {
 public:
  LentView(Program& program, int win_no, Surface& surface, const Look& look)
      : program_(program), win_no_(win_no) {
    DrawSpect& spect = program.spect;
    spect.SetPrintSettings(look.print);
    spect.SetDotStep(look.dot_step);
    spect.SetBackColor(win_no, look.ground);
    spect.SetDivisions(win_no, CountTicksOf(AxisHeight(program, win_no)).Divisions);
    spect.SetSurface(win_no, &surface);
  }
  LentView(const LentView&) = delete;
  LentView& operator=(const LentView&) = delete;
  ~LentView() {
    DrawSpect& spect = program_.spect;
    spect.SetSurface(win_no_, nullptr);
    spect.SetBackColor(win_no_, program_.workspace.ColorTbl[kColorWindowBack + win_no_]);
    spect.SetDotStep(1);
    spect.SetPrintSettings({});
  }

 private:
  Program& program_;
  int win_no_;
};

std::unique_ptr<Surface> PanelAt(Page& page, const PageBox& place, const PageBox& box) {
  return page.Panel(place.x + box.x, place.y + box.y, box.width, box.height);
}

// A window with its axes in a part of the page; where the graph stands on the page.
PageBox DrawWindow(Program& program, int win_no, const std::string& title, const Look& look,
                   Page& page, const PageBox& place) {
  const auto all = page.Panel(place.x, place.y, place.width, place.height);
  const PrintFrame frame = DrawPrintFrame(*all, title, look.ink);
  const ViewScale& scale = program.spect.Scale(win_no);
  const auto graph = PanelAt(page, place, frame.plot);
  {
    const LentView lent(program, win_no, *graph, look);
    program.spect.Redraw(win_no);
    const std::vector<ChannelRange> regions = RegionsOf(program, win_no);
    Overlay overlay;
    overlay.Regions = regions;
    program.spect.DrawOverlay(win_no, *graph, overlay);
  }
  const auto counts = PanelAt(page, place, frame.count_axis);
  const std::int32_t height = AxisHeight(program, win_no);
  if (look.print.PrintMode == kFalse) {
    DrawCountAxis(*counts, height, look.ink);
  } else {
    DrawCountAxisPrint(*counts, height);
  }
  const auto units = PanelAt(page, place, frame.unit_axis);
  DrawUnitAxis(*units, program.workspace, AxisDataNo(program, win_no), program.view.DispUnit,
               UnitDivisions(frame.plot.width), scale.WidthX, scale.StartX, look.ink,
               look.print.PrintMode == kFalse ? AxisMedium::Screen : AxisMedium::Page);
  return {place.x + frame.plot.x, place.y + frame.plot.y, frame.plot.width, frame.plot.height};
}

// The property lines from the top of a panel down, in columns of equal width. A comment that is too
// long for its column is cut.
class PropBlock {
 public:
  PropBlock(std::span<const PropLine> lines, int columns) : lines_(lines), columns_(columns) {}

  int Rows() const { return (static_cast<int>(lines_.size()) + columns_ - 1) / columns_; }
  static double LineHeight(const Surface& surface) { return surface.TextHeight() * kLineGap; }

  void Draw(Surface& panel, double width) const {
    const double column_width = (width - kColumnGap * (columns_ - 1)) / columns_;
    double label_width = 0;
    for (const PropLine& line : lines_) {
      label_width = std::max(label_width, panel.TextWidth(line.label + "  "));
    }
    int index = 0;
    for (const PropLine& line : lines_) {
      const double x = index / Rows() * (column_width + kColumnGap);
      const double y = index % Rows() * LineHeight(panel);
      panel.Text({x, y}, line.label, kPrintInk);
      panel.Text({x + label_width, y}, FittingText(panel, line.text, column_width - label_width),
                 kPrintInk);
      ++index;
    }
  }

 private:
  std::span<const PropLine> lines_;
  int columns_;
};

void DrawLegend(const Program& program, int win_no, Surface& graph, double width) {
  const std::vector<const GraphSlot*> shown = ShownGraphs(program, win_no);
  if (shown.empty()) return;
  graph.SetFontSize(kTextPoints);
  const double room = std::max(width - kLegendSample - 5 * kLegendMargin, 0.0);
  double text_width = 0;
  for (const GraphSlot* slot : shown) {
    text_width = std::max(text_width, graph.TextWidth(FittingText(graph, slot->Title, room)));
  }
  const double line = graph.TextHeight() * kLineGap;
  const double right = width - kLegendMargin;
  const double left = right - text_width - kLegendSample - 3 * kLegendMargin;
  const double bottom = kLegendMargin * 2 + line * static_cast<double>(shown.size());
  const ColorTable& colors = program.workspace.ColorTbl;
  graph.Box({left, kLegendMargin}, {right, bottom}, colors[kColorWindowBack + win_no],
            kLegendOpacity);
  double y = kLegendMargin * 1.5;
  for (const GraphSlot* slot : shown) {
    const double middle = y + graph.TextHeight() / 2;
    graph.Box({left + kLegendMargin, middle - 1},
              {left + kLegendMargin + kLegendSample, middle + 1}, slot->Color, 1);
    graph.Text({left + kLegendSample + 2 * kLegendMargin, y}, FittingText(graph, slot->Title, room),
               colors[kColorAxis]);
    y += line;
  }
}

}  // namespace

std::optional<WindowSheet> CurrentSheet(const Program& program) {
  const ViewState& view = program.view;
  const int win_no = ShowsGraph(program, view.CurWin) ? view.CurWin : kWindows - 1 - view.CurWin;
  if (!ShowsGraph(program, win_no)) return {};
  const std::string& title = program.workspace.Slots[view.GraphNo].Title;
  const GraphSlot* raw = RawGraphOf(program.workspace, view.GraphNo);
  return WindowSheet{win_no, view.DataNo, raw == nullptr ? title : raw->Title};
}

void DrawWindowSheet(Program& program, const WindowSheet& sheet, Page& page) {
  const PictureSize size = page.Size();
  const double width = size.width_px;
  const double height = size.height_px;
  const auto lines = BuildPropLines(program.workspace, sheet.data_no);
  const PropBlock block(lines, width > height ? 2 : 1);
  const auto whole = page.Whole();
  double points = kTextPoints;
  const auto block_height = [&] {
    whole->SetFontSize(points);
    return PropBlock::LineHeight(*whole) * block.Rows();
  };
  while (points > kSmallestPoints && block_height() > (1 - kLeastPlotShare) * height) --points;
  const double plot_height = std::max(height - block_height(), 0.0);

  const Look look{{kTrue, static_cast<double>(std::max<std::int16_t>(sheet.dot_size, 1))},
                  sheet.dot_size,
                  kPaper,
                  kPrintInk};
  const PageBox graph =
      DrawWindow(program, sheet.win_no, sheet.title, look, page, {0, 0, width, plot_height});
  const auto panel = page.Panel(graph.x, plot_height, graph.width, height - plot_height);
  panel->SetFontSize(points);
  block.Draw(*panel, graph.width);
}

void DrawWindowPicture(Program& program, int win_no, Page& page) {
  const ColorTable& colors = program.workspace.ColorTbl;
  const Look look{{}, 1, colors[kColorWindowBack + win_no], colors[kColorAxis]};
  const double width = page.Size().width_px;
  const double height = page.Size().height_px;
  page.Whole()->Clear(look.ground);
  const PageBox graph = DrawWindow(program, win_no, "", look, page, {0, 0, width, height});
  const auto panel = page.Panel(graph.x, graph.y, graph.width, graph.height);
  DrawLegend(program, win_no, *panel, graph.width);
}

}  // namespace dorvane
