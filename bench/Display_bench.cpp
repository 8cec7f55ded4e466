// Drawing ten curves: the engine alone, and with the surface of the screen.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cmath>
#include <cstdint>
#include <memory>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "display/DrawScale.h"
#include "display/DrawSpect.h"
#include "qt/surface/PainterSurface.h"
#include "qt/surface/Picture.h"

namespace dorvane {
namespace {

constexpr int kCurves = 10;
constexpr std::int32_t kHeight = 10000;
constexpr Color kGround = Rgb(255, 255, 255);

class NoDialogs : public Dialogs {
 public:
  void Message(std::string_view) override {}
  void CaptionedMessage(std::string_view, std::string_view) override {}
  bool AskYesNo(const Question&) override { return false; }
  std::optional<FilesChoice> ChooseFilesToOpen(const FileRequest&) override { return {}; }
  std::optional<FileChoice> ChooseFileToSave(const FileRequest&) override { return {}; }
  std::optional<Color> ChooseColor(Color) override { return {}; }
};

// Swallows strokes, so that the engine's own share is left.
class NoSurface : public Surface {
 public:
  void SetScale(double, double, double, double) override {}
  Point PixelSize() const override { return {1, 1}; }
  void Clear(Color) override {}
  double LineWidth() const override { return 1; }
  void SetLineWidth(double) override {}
  void Lines(std::span<const Segment> segments, Color) override {
    benchmark::DoNotOptimize(segments.data());
  }
  void Dots(std::span<const Point> points, Color) override {
    benchmark::DoNotOptimize(points.data());
  }
  void Box(const Point&, const Point&, Color, double) override {}
  void SetFontSize(double) override {}
  double TextWidth(std::string_view) const override { return 1; }
  double TextHeight() const override { return 1; }
  void Text(const Point&, std::string_view, Color) override {}
};

// A curve's lines at 2 pixels whatever the engine asks for.
class ThickSurface : public PainterSurface {
 public:
  using PainterSurface::PainterSurface;
  void SetLineWidth(double) override { PainterSurface::SetLineWidth(2); }
};

// Background, eleven peaks and Poisson noise.
std::vector<std::int32_t> Counts(int channels, int curve) {
  std::mt19937 random(static_cast<unsigned>(curve));
  std::vector<std::int32_t> counts(static_cast<std::size_t>(channels));
  for (int i = 0; i < channels; ++i) {
    double mean = 1500 * std::exp(-i / (0.4 * channels)) + 100 * curve;
    for (int k = 1; k < 12; ++k) {
      const double distance = (i - channels * k / 12.0 - 5 * curve) / 8.0;
      mean += 7000.0 / k * std::exp(-distance * distance);
    }
    counts[static_cast<std::size_t>(i)] = std::poisson_distribution<std::int32_t>(mean)(random);
  }
  return counts;
}

struct Drawing {
  Drawing(int channels, std::int16_t width, std::int16_t y_mode)
      : engine(std::make_unique<DrawSpect>(dialogs)) {
    engine->OpenView(0, nullptr, kGround);
    for (int curve = 0; curve < kCurves; ++curve) {
      engine->SetSpectrum(0, curve, Counts(channels, curve),
                          Rgb(20 * curve, 200 - 20 * curve, 100));
    }
    engine->SetWidthX(0, width);
    engine->SetYScale(0, y_mode, kHeight);
    engine->SetDivisions(0, 5);
  }
  NoDialogs dialogs;
  std::unique_ptr<DrawSpect> engine;
};

void EngineAlone(benchmark::State& state) {
  Drawing drawing(static_cast<int>(state.range(0)), static_cast<std::int16_t>(state.range(0)),
                  static_cast<std::int16_t>(state.range(1)));
  NoSurface surface;
  drawing.engine->SetSurface(0, &surface);
  for (auto _ : state) drawing.engine->Redraw(0);
}
BENCHMARK(EngineAlone)
    ->ArgNames({"channels", "log"})
    ->Args({4096, 0})
    ->Args({4096, 1})
    ->Args({8192, 0})
    ->Unit(benchmark::kMillisecond);

template <typename PaintSurface>
void OnImage(benchmark::State& state) {
  const auto scale = static_cast<int>(state.range(2));
  Drawing drawing(static_cast<int>(state.range(0)), static_cast<std::int16_t>(state.range(1)),
                  kLinear);
  QImage image(1000 * scale, 600 * scale, QImage::Format_RGB32);
  image.setDevicePixelRatio(scale);
  QPainter painter(&image);
  PaintSurface surface(painter, QRectF(0, 0, 1000, 600));
  drawing.engine->SetSurface(0, &surface);
  for (auto _ : state) drawing.engine->Redraw(0);
}
void TenCurves(benchmark::State& state) {
  OnImage<PainterSurface>(state);
}
void TenCurvesAtTwoPixels(benchmark::State& state) {
  OnImage<ThickSurface>(state);
}
BENCHMARK(TenCurves)
    ->ArgNames({"channels", "shown", "scale"})
    ->Args({4096, 4096, 1})
    ->Args({4096, 2048, 1})
    ->Args({8192, 8192, 1})
    ->Args({4096, 512, 1})
    ->Args({4096, 4096, 2})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(TenCurvesAtTwoPixels)
    ->ArgNames({"channels", "shown", "scale"})
    ->Args({4096, 4096, 1})
    ->Unit(benchmark::kMillisecond);

void CursorAndAreaOverIt(benchmark::State& state) {
  Drawing drawing(4096, 4096, kLinear);
  QImage image(1000, 600, QImage::Format_RGB32);
  QPainter painter(&image);
  PainterSurface surface(painter, QRectF(0, 0, 1000, 600));
  Overlay overlay;
  overlay.CursorOn = true;
  overlay.CursorChannel = 2000;
  overlay.Area = {true, 500, 900, Rgb(0, 0, 200)};
  for (auto _ : state) drawing.engine->DrawOverlay(0, surface, overlay);
}
BENCHMARK(CursorAndAreaOverIt)->Unit(benchmark::kMicrosecond);

void WholePicture(benchmark::State& state, PictureFormat format) {
  Drawing drawing(4096, 4096, kLinear);
  for (auto _ : state) {
    const ByteVector bytes = RenderPicture(format, {}, [&](Page& page) {
      const auto whole = page.Whole();
      const PrintFrame frame = DrawPrintFrame(*whole, "Ten curves", 0);
      const auto plot = page.Panel(frame.plot.x, frame.plot.y, frame.plot.width, frame.plot.height);
      drawing.engine->SetSurface(0, plot.get());
      drawing.engine->Redraw(0);
      drawing.engine->SetSurface(0, nullptr);
    });
    state.counters["bytes"] = static_cast<double>(bytes.size());
  }
}
BENCHMARK_CAPTURE(WholePicture, png, PictureFormat::Png)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WholePicture, svg, PictureFormat::Svg)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WholePicture, pdf, PictureFormat::Pdf)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace dorvane

int main(int argc, char** argv) {
  const dorvane::GuiSession gui(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
