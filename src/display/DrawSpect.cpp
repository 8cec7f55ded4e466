#include "display/DrawSpect.h"

#include <algorithm>
#include <limits>
#include <string>

#include "display/MarkPainter.h"

namespace dorvane {
namespace {

constexpr int kChannelLimit = 8192;
constexpr int kLastChannel = kChannelLimit - 1;

constexpr std::string_view kCaption = "グラフ表示";
constexpr std::string_view kTooManyChannels = "チャンネル数オーバー";
constexpr std::string_view kStartsBelowFirst = "開始位置指定は1からです。";
constexpr std::string_view kEndsPastLast = "Ｃｈ軸最終位置計算値オーバー";
constexpr std::string_view kNoSuchGraph = "グラフ番号が有効ではありません。";
constexpr std::string_view kGraphOutOfRange = "グラフNoｶﾞ規定範囲外です｡:";
constexpr std::string_view kTooManyTexts = "テキスト登録数オーバー";
constexpr std::string_view kTooManySymbols = "シンボル登録数オーバー";

constexpr bool IsGraph(int graph) {
  return graph >= 0 && graph < kGraphs;
}

void Clear(Curve& curve) {
  curve.Color = 0;
  curve.Shown = kFalse;
  curve.Valid = kFalse;
  curve.Counts.fill(0);
  curve.PointColors.fill(0);
}

}  // namespace

void DrawSpect::Say(std::string_view text) {
  dialogs_.CaptionedMessage(kCaption, text);
}

bool DrawSpect::HasGraph(int graph) {
  if (IsGraph(graph)) return true;
  Say(std::string(kGraphOutOfRange) + std::to_string(graph));
  return false;
}

void DrawSpect::Rescale(int view) {
  const View& shown = views_[view];
  if (shown.surface != nullptr) ApplyScale(*shown.surface, shown.scale, print_);
}

void DrawSpect::InitSpect() {
  alias_view_ = 0;
  for (ViewArrays& arrays : arrays_) {
    for (Curve& curve : arrays.curves) Clear(curve);
  }
  InitMarks();
  for (View& view : views_) {
    view.scale = ViewScale{};
    view.divisions = 0;
  }
  for (int window = 0; window < 2; ++window) {
    Rescale(window);
    if (Surface* surface = views_[window].surface) surface->Clear(views_[window].back_color);
  }
}

void DrawSpect::InitMarks() {
  for (ViewArrays& arrays : arrays_) {
    arrays.peak_lines.Clear();
    arrays.texts.Clear();
    arrays.symbols.Clear();
    arrays.named_lines.Clear();
  }
}

void DrawSpect::OpenView(int view, Surface* surface, Color back_color) {
  views_[view] = {surface, back_color, {}, 0};
  alias_view_ = 0;
  for (Curve& curve : arrays_[view].curves) Clear(curve);
  Rescale(view);
}

void DrawSpect::CopyView(int view, Surface* surface, Color back_color) {
  View& copy = views_[view];
  const ViewScale& source = views_[0].scale;
  copy.surface = surface;
  copy.back_color = back_color;
  copy.scale.YMode = source.YMode;
  copy.scale.StartX = source.StartX;
  copy.scale.EndX = source.EndX;
  copy.scale.WidthX = source.WidthX;
  copy.scale.MinY = source.MinY;
  copy.scale.MaxY = source.MaxY;
  alias_view_ = view;
  Rescale(view);
}

void DrawSpect::SetSurface(int view, Surface* surface) {
  views_[view].surface = surface;
  Rescale(view);
}

void DrawSpect::SetSpectrum(int view, int graph, std::span<const std::int32_t> counts,
                            Color color) {
  if (!HasGraph(graph)) return;
  const auto points = counts.first(std::min<std::size_t>(counts.size(), kCurvePoints));
  Curve& curve = Arrays(view).curves[graph];
  const auto end = std::copy(points.begin(), points.end(), curve.Counts.begin());
  std::fill(end, curve.Counts.end(), 0);
  views_[view].scale.PointCount = ToInt16(static_cast<std::int64_t>(points.size()));
  curve.Color = color;
  curve.Shown = kTrue;
  curve.Valid = kTrue;
}

void DrawSpect::SetYScale(int view, std::int16_t y_mode, std::int32_t height) {
  ViewScale& scale = views_[view].scale;
  scale.YMode = y_mode;
  const std::int64_t extent = y_mode == kLogarithmic ? WholeDecades(height) : height;
  scale.MaxY = static_cast<std::int32_t>(
      std::min<std::int64_t>(scale.MinY + extent, std::numeric_limits<std::int32_t>::max()));
  Rescale(view);
}

void DrawSpect::SetWidthX(int view, std::int16_t width) {
  if (width > kChannelLimit) {
    Say(kTooManyChannels);
    return;
  }
  ViewScale& scale = views_[view].scale;
  const int channels = std::max<int>(width, 1);
  const int start = std::min(scale.StartX + channels - 1, kLastChannel) - channels + 1;
  scale.StartX = ToInt16(start);
  scale.EndX = ToInt16(start + channels - 1);
  scale.WidthX = ToInt16(channels);
  Rescale(view);
}

void DrawSpect::SetStartX(int view, std::int16_t start) {
  ViewScale& scale = views_[view].scale;
  if (start < 0) {
    Say(kStartsBelowFirst);
    start = 0;
  }
  const int end = start + scale.WidthX - 1;
  if (end > kLastChannel) {
    Say(kEndsPastLast);
    return;
  }
  scale.StartX = start;
  scale.EndX = ToInt16(end);
  Rescale(view);
}

void DrawSpect::SetDrawMode(int view, std::int16_t mode) {
  views_[view].scale.DrawMode = mode;
  Redraw(view);
}

void DrawSpect::ShowGraph(int view, int graph, std::int16_t shown) {
  if (!IsGraph(graph)) {
    Say(kNoSuchGraph);
    return;
  }
  Arrays(view).curves[graph].Shown = shown;
  Redraw(view);
}

void DrawSpect::SetGraphColor(int view, int graph, Color color) {
  if (HasGraph(graph)) Arrays(view).curves[graph].Color = color;
}

// KEPT: from = to is no stretch, so that an area whose ends have met colours nothing.
void DrawSpect::SetPointColor(int view, int graph, std::int16_t from, std::int16_t to,
                              Color color) {
  if (!HasGraph(graph)) return;
  if (from == to || from < 0 || to < 0) return;
  auto& colors = Arrays(view).curves[graph].PointColors;
  for (int point = from; point <= std::min<int>(to, kCurvePoints - 1); ++point) {
    colors[point] = color;
  }
}

void DrawSpect::ClearPoints(int view, int graph) {
  if (HasGraph(graph)) Clear(Arrays(view).curves[graph]);
}

void DrawSpect::ClearView(int view) {
  for (Curve& curve : Arrays(view).curves) Clear(curve);
  if (Surface* surface = views_[view].surface) surface->Clear(views_[view].back_color);
}

std::int16_t DrawSpect::AddPeakLine(int view, std::int16_t channel) {
  return Arrays(view).peak_lines.Add(channel);
}

void DrawSpect::SetPeakLine(int view, std::int16_t index, std::int16_t channel) {
  Arrays(view).peak_lines.Set(index, channel);
}

void DrawSpect::DeletePeakLine(int view, std::int16_t index, std::int16_t redraw) {
  Arrays(view).peak_lines.Delete(index);
  if (redraw != kFalse) Redraw(view);
}

void DrawSpect::AddText(int view, std::int32_t x, std::int16_t y, std::string_view text,
                        Color color, std::int16_t size, std::int16_t draw_now) {
  const MarkRec mark = MakeMark(x, y, text, color, size);
  if (!Arrays(view).texts.Add(mark)) {
    Say(kTooManyTexts);
    return;
  }
  const View& shown = views_[view];
  if (draw_now != kFalse && shown.surface != nullptr) {
    MarkPainter(*shown.surface, shown.scale, print_).TextMark(mark);
  }
}

void DrawSpect::AddSymbol(int view, std::int32_t x, std::int16_t y, std::string_view text,
                          Color color, std::int16_t size, std::int16_t draw_now) {
  const MarkRec mark = MakeMark(x, y, text, color, size);
  if (!Arrays(view).symbols.Add(mark)) {
    Say(kTooManySymbols);
    return;
  }
  const View& shown = views_[view];
  if (draw_now != kFalse && shown.surface != nullptr) {
    MarkPainter(*shown.surface, shown.scale, print_).Symbol(mark);
  }
}

void DrawSpect::AddNamedLine(int view, std::int32_t x, std::string_view text, Color color,
                             std::int16_t size, std::int16_t draw_now) {
  const MarkRec mark = MakeMark(x, 0, text, color, size);
  const View& shown = views_[view];
  if (Arrays(view).named_lines.Add(mark) && draw_now != kFalse && shown.surface != nullptr) {
    MarkPainter(*shown.surface, shown.scale, print_).NamedLines({&mark, 1});
  }
}

void DrawSpect::ClearTexts(int view) {
  Arrays(view).texts.Clear();
  Redraw(view);
}

void DrawSpect::ClearSymbols(int view) {
  Arrays(view).symbols.Clear();
  Redraw(view);
}

void DrawSpect::ClearNamedLines(int view) {
  Arrays(view).named_lines.Clear();
  Redraw(view);
}

void DrawSpect::Redraw(int view) {
  const View& shown = views_[view];
  if (shown.surface == nullptr) return;
  shown.surface->Clear(shown.back_color);
  const ViewArrays& arrays = Arrays(view);
  for (int graph = 0; graph < kGraphs; ++graph) {
    if (arrays.curves[graph].Shown == kFalse) continue;
    if (shown.scale.DrawMode == kDrawPaint) {
      PaintCurve(view, graph);
    } else {
      DrawCurve(view, graph);
    }
  }
  const MarkPainter marks(*shown.surface, shown.scale, print_);
  for (const std::int16_t channel : arrays.peak_lines.Channels()) {
    marks.PeakLine(channel, peak_line_color_);
  }
  for (const MarkRec& text : arrays.texts.Marks()) marks.TextMark(text);
  for (const MarkRec& symbol : arrays.symbols.Marks()) marks.Symbol(symbol);
  marks.NamedLines(arrays.named_lines.Marks());
  marks.ScaleLines(shown.divisions, scale_line_color_);
}

void DrawSpect::DrawCurve(int view, int graph) {
  const View& shown = views_[view];
  if (!HasGraph(graph) || shown.surface == nullptr) return;
  painter_.Draw(*shown.surface, shown.scale, print_, dot_step_, Arrays(view).curves[graph]);
}

void DrawSpect::PaintCurve(int view, int graph) {
  const View& shown = views_[view];
  if (!HasGraph(graph) || shown.surface == nullptr) return;
  painter_.Paint(*shown.surface, shown.scale, print_, Arrays(view).curves[graph]);
}

void DrawSpect::DrawOverlay(int view, Surface& surface, const Overlay& overlay) const {
  const ViewScale& scale = views_[view].scale;
  ApplyScale(surface, scale, print_);
  MarkPainter(surface, scale, print_).DrawOverlay(overlay);
}

void DrawSpect::SetPrintSettings(const PrintSettings& settings) {
  print_ = settings;
  for (int view = 0; view < kViews; ++view) Rescale(view);
}

void DrawSpect::SetMarkColors(Color peak_lines, Color scale_lines) {
  peak_line_color_ = peak_lines;
  scale_line_color_ = scale_lines;
}

std::int16_t DrawSpect::ChannelAtX(int view, double fraction) const {
  const ViewScale& scale = views_[view].scale;
  const double inside = fraction >= 0 ? std::min(fraction, 1.0) : 0.0;
  return RoundToInt16(scale.StartX + inside * (scale.EndX - scale.StartX));
}

double DrawSpect::XOfChannel(int view, double channel) const {
  const ViewScale& scale = views_[view].scale;
  if (scale.EndX == scale.StartX) return 0;
  return (channel - scale.StartX) / (scale.EndX - scale.StartX);
}

}  // namespace dorvane
