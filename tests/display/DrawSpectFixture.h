// A drawing engine with two recorded windows, and the few verbs that its tests share.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "display/DrawSpect.h"
#include "display/RecordingSurface.h"
#include "support/ScriptedDialogs.h"

namespace dorvane {

constexpr Color kBack = Rgb(255, 255, 255);
constexpr Color kInk = Rgb(10, 20, 30);
constexpr Color kOwn = Rgb(200, 0, 0);
constexpr const char* kCaption = "グラフ表示";

class DrawSpectTest : public testing::Test {
 protected:
  DrawSpectTest() : engine(std::make_unique<DrawSpect>(dialogs)) {
    engine->InitSpect();
    engine->OpenView(0, &surface, kBack);
    engine->OpenView(1, &second, kBack);
  }

  // Channels first..first+width-1 of a view.
  void Show(std::int16_t first, std::int16_t width, int view = 0) {
    engine->SetWidthX(view, width);
    engine->SetStartX(view, first);
  }
  void Curve(std::vector<std::int32_t> counts, int graph = 0, int view = 0) {
    engine->SetSpectrum(view, graph, counts, kInk);
  }
  // x of the points that a curve joins.
  std::vector<double> JoinedChannels() {
    engine->Redraw(0);
    std::vector<double> joined;
    for (const Stroke& line : surface.Lines()) {
      if (joined.empty()) joined.push_back(line.from.x);
      joined.push_back(line.to.x);
    }
    return joined;
  }
  void ExpectSaid(const char* text) { dialogs.ExpectCaptionedMessage(kCaption, text); }

  ScriptedDialogs dialogs;
  RecordingSurface surface;
  RecordingSurface second;
  std::unique_ptr<DrawSpect> engine;
};

inline std::vector<std::int32_t> Flat(int channels, std::int32_t count = 100) {
  return std::vector<std::int32_t>(static_cast<std::size_t>(channels), count);
}

}  // namespace dorvane
