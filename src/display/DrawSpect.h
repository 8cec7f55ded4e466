// The drawing engine: keeps its own copy of every curve to be shown with the registered marks, by
// view and graph, and paints them on a surface when told to.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "display/CurvePainter.h"
#include "display/Marks.h"
#include "display/Overlay.h"
#include "display/ViewScale.h"
#include "support/Dialogs.h"
#include "support/Fixed.h"
#include "support/Surface.h"

namespace dorvane {

constexpr int kViews = 3;    // the two windows and a page
constexpr int kGraphs = 14;  // a spectrum's graph number is its DataNo

// About 6 megabytes: it lives on the heap. Nothing is allocated while it draws.
//
// A view has no surface until OpenView, CopyView or SetSurface; without one, drawing does nothing.
// A surface has to outlive its place here. A view outside 0..2 throws Fault(Subscript); a graph
// outside 0..13 is told in a message and changes nothing. Flags are -1 yes, 0 no.
class DrawSpect {
 public:
  explicit DrawSpect(Dialogs& dialogs) : dialogs_(dialogs) {}
  DrawSpect(const DrawSpect&) = delete;
  DrawSpect& operator=(const DrawSpect&) = delete;

  // Curves, marks, scales and alias as they are at start; surfaces are kept, those of views 0 and 1
  // cleared.
  void InitSpect();
  // Empties the mark lists of all views.
  void InitMarks();
  // Default scale, no curves, no alias in any view.
  void OpenView(int view, Surface* surface, Color back_color);
  // The scale of view 0, and from now on its curves and marks: the view becomes the one alias there
  // is.
  void CopyView(int view, Surface* surface, Color back_color);
  // The alias shows its own curves and marks again, as it had them before CopyView.
  void EndAlias() { alias_view_ = 0; }
  // Another ground for the same picture, from the next redraw on.
  void SetBackColor(int view, Color color) { views_[view].back_color = color; }
  // Another surface for the same picture; nullptr takes it away.
  void SetSurface(int view, Surface* surface);

  // Registers a curve and shows it: the counts of channels 0.., at most 8193 of them; channels past
  // the last have 0.
  void SetSpectrum(int view, int graph, std::span<const std::int32_t> counts, Color color);
  // MaxY = MinY + height, or MinY + the whole decades in the height (0 for a height below 1).
  void SetYScale(int view, std::int16_t y_mode, std::int32_t height);
  // Shows `width` channels from StartX on, moved to the left where they would end past 8191. Above
  // 8192: a message, nothing changes. Below 1 counts as 1.
  void SetWidthX(int view, std::int16_t width);
  // Moves the first channel. Negative: a message, and 0. Where the last would be past 8191: a
  // message, nothing changes.
  void SetStartX(int view, std::int16_t start);
  void SetDrawMode(int view, std::int16_t mode);            // redraws
  void ShowGraph(int view, int graph, std::int16_t shown);  // redraws
  // Another colour for a registered curve, from the next redraw on.
  void SetGraphColor(int view, int graph, Color color);
  // An own colour for the points from..to (0 for none); nothing where from = to or one of them is
  // negative.
  void SetPointColor(int view, int graph, std::int16_t from, std::int16_t to, Color color);
  // Removes a curve with the own colours of its points; the picture stays as it is.
  void ClearPoints(int view, int graph);
  // ClearPoints on every graph, and an empty surface.
  void ClearView(int view);

  // See PeakLines for indices and limits.
  std::int16_t AddPeakLine(int view, std::int16_t channel);
  void SetPeakLine(int view, std::int16_t index, std::int16_t channel);
  void DeletePeakLine(int view, std::int16_t index, std::int16_t redraw);
  // A text centred at channel x, standing on y counts; a symbol is centred at y too. A full list is
  // told in a message.
  void AddText(int view, std::int32_t x, std::int16_t y, std::string_view text, Color color,
               std::int16_t size, std::int16_t draw_now);
  void AddSymbol(int view, std::int32_t x, std::int16_t y, std::string_view text, Color color,
                 std::int16_t size, std::int16_t draw_now);
  // A line over the whole height with its name at the top. Ignored when 100 are registered.
  void AddNamedLine(int view, std::int32_t x, std::string_view text, Color color, std::int16_t size,
                    std::int16_t draw_now);
  void ClearTexts(int view);       // redraws
  void ClearSymbols(int view);     // redraws
  void ClearNamedLines(int view);  // redraws

  // Clears the surface and draws curves, peak lines, texts, symbols, named lines and the scale's
  // mark lines over it.
  void Redraw(int view);
  // One curve over what is there.
  void DrawCurve(int view, int graph);
  void PaintCurve(int view, int graph);
  // Draws what moves over a copy of the picture on `surface`, whose scale becomes the view's.
  void DrawOverlay(int view, Surface& surface, const Overlay& overlay) const;

  void SetPrintSettings(const PrintSettings& settings);
  void SetDotStep(std::int16_t step) { dot_step_ = step; }
  // Divisions of the count axis, between which the picture gets its mark lines; 0 for none.
  void SetDivisions(int view, std::int16_t divisions) { views_[view].divisions = divisions; }
  void SetMarkColors(Color peak_lines, Color scale_lines);

  const ViewScale& Scale(int view) const { return views_[view].scale; }
  int AliasView() const { return alias_view_; }
  // Throws Fault(Subscript) for a graph outside 0..13.
  const Curve& CurveOf(int view, int graph) const { return Arrays(view).curves[graph]; }
  const PeakLines& PeakLinesOf(int view) const { return Arrays(view).peak_lines; }
  std::span<const MarkRec> Texts(int view) const { return Arrays(view).texts.Marks(); }
  std::span<const MarkRec> Symbols(int view) const { return Arrays(view).symbols.Marks(); }
  std::span<const MarkRec> NamedLines(int view) const { return Arrays(view).named_lines.Marks(); }

  // The channel shown that is nearest to a fraction 0..1 of the surface's width; the first or last
  // outside of it.
  std::int16_t ChannelAtX(int view, double fraction) const;
  // The reverse: below 0 or above 1 for a channel that isn't shown; 0 when one channel alone is
  // shown.
  double XOfChannel(int view, double channel) const;

 private:
  struct ViewArrays {
    Fixed<Curve, 0, kGraphs - 1> curves;
    PeakLines peak_lines;
    MarkList<kMaxTexts> texts;
    MarkList<kMaxSymbols> symbols;
    MarkList<kMaxNamedLines> named_lines;
  };
  struct View {
    Surface* surface = nullptr;
    Color back_color = 0;
    ViewScale scale;
    std::int16_t divisions = 0;
  };

  ViewArrays& Arrays(int view) { return arrays_[view == alias_view_ ? 0 : view]; }
  const ViewArrays& Arrays(int view) const { return arrays_[view == alias_view_ ? 0 : view]; }
  bool HasGraph(int graph);
  void Say(std::string_view text);
  void Rescale(int view);

  Dialogs& dialogs_;
  Fixed<View, 0, kViews - 1> views_;
  Fixed<ViewArrays, 0, kViews - 1> arrays_;
  int alias_view_ = 0;
  PrintSettings print_;
  std::int16_t dot_step_ = 1;
  Color peak_line_color_ = Rgb(200, 60, 60);
  Color scale_line_color_ = Rgb(128, 128, 128);
  CurvePainter painter_;
};

}  // namespace dorvane
