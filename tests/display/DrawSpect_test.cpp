#include "display/DrawSpect.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "display/DrawSpectFixture.h"

namespace dorvane {
namespace {

// Views and scales

TEST_F(DrawSpectTest, AnOpenedViewHasTheDefaults) {
  const ViewScale& scale = engine->Scale(0);
  EXPECT_EQ(scale.YMode, 0);
  EXPECT_EQ(scale.StartX, 0);
  EXPECT_EQ(scale.EndX, 8191);
  EXPECT_EQ(scale.WidthX, 8192);
  EXPECT_EQ(scale.MinY, 0);
  EXPECT_EQ(scale.MaxY, 1000000);
  EXPECT_EQ(scale.DrawMode, 0);
  EXPECT_EQ(engine->AliasView(), 0);
}

TEST_F(DrawSpectTest, TheSurfaceGetsTheScaleAtEveryChange) {
  Show(100, 200);
  engine->SetYScale(0, kLinear, 5000);
  EXPECT_EQ(surface.left, 100);
  EXPECT_EQ(surface.right, 299);
  EXPECT_EQ(surface.top, 5000);
  EXPECT_EQ(surface.bottom, 0);
}

TEST_F(DrawSpectTest, OpenViewClearsTheCurves) {
  Curve(Flat(10));
  engine->OpenView(0, &surface, kBack);
  EXPECT_EQ(engine->CurveOf(0, 0).Counts[5], 0);
  EXPECT_EQ(engine->CurveOf(0, 0).Shown, 0);
}

TEST_F(DrawSpectTest, OpenViewLeavesTheOtherViews) {
  Curve(Flat(10));
  engine->OpenView(1, &second, kBack);
  EXPECT_EQ(engine->CurveOf(0, 0).Counts[5], 100);
}

TEST_F(DrawSpectTest, InitSpectClearsTheTwoSurfacesAndEverythingElse) {
  Curve(Flat(10));
  engine->AddPeakLine(0, 5);
  engine->AddText(0, 1, 1, "a", 0, 0, 0);
  surface.Forget();
  second.Forget();
  engine->InitSpect();
  ASSERT_EQ(surface.strokes.size(), 1u);
  EXPECT_EQ(surface.strokes[0].kind, Stroke::Kind::Clear);
  EXPECT_EQ(surface.strokes[0].color, kBack);
  EXPECT_EQ(second.strokes.size(), 1u);
  EXPECT_EQ(engine->CurveOf(0, 0).Counts[5], 0);
  EXPECT_EQ(engine->PeakLinesOf(0).Count(), 0);
  EXPECT_TRUE(engine->Texts(0).empty());
}

TEST_F(DrawSpectTest, InitMarksClearsAllListsOfAllViews) {
  for (const int view : {0, 1}) {
    engine->AddPeakLine(view, 5);
    engine->AddText(view, 1, 1, "a", 0, 0, 0);
    engine->AddSymbol(view, 1, 1, "a", 0, 0, 0);
    engine->AddNamedLine(view, 1, "a", 0, 0, 0);
  }
  engine->InitMarks();
  for (const int view : {0, 1}) {
    EXPECT_EQ(engine->PeakLinesOf(view).Count(), 0);
    EXPECT_TRUE(engine->Texts(view).empty());
    EXPECT_TRUE(engine->Symbols(view).empty());
    EXPECT_TRUE(engine->NamedLines(view).empty());
  }
}

TEST_F(DrawSpectTest, LinearHeightStandsOnTheBottom) {
  engine->SetYScale(0, kLinear, 800);
  EXPECT_EQ(engine->Scale(0).MaxY, 800);
}

TEST_F(DrawSpectTest, LogarithmicHeightIsItsWholeDecades) {
  engine->SetYScale(0, kLogarithmic, 10000000);
  EXPECT_EQ(engine->Scale(0).MaxY, 7);
  engine->SetYScale(0, kLogarithmic, 9999999);
  EXPECT_EQ(engine->Scale(0).MaxY, 6);
}

TEST_F(DrawSpectTest, DecadesOfAPowerOfTenAreThatPower) {
  std::int32_t power = 1;
  for (std::int16_t decades = 0; decades <= 9; ++decades) {
    EXPECT_EQ(WholeDecades(power), decades);
    if (decades < 9) power *= 10;
  }
  EXPECT_EQ(WholeDecades(999), 2);
  EXPECT_EQ(WholeDecades(0), 0);
}

TEST_F(DrawSpectTest, WidthKeepsTheStart) {
  Show(100, 50);
  EXPECT_EQ(engine->Scale(0).StartX, 100);
  EXPECT_EQ(engine->Scale(0).EndX, 149);
  EXPECT_EQ(engine->Scale(0).WidthX, 50);
}

TEST_F(DrawSpectTest, WidthOf8192MovesTheStartBackTo0) {
  Show(100, 512);
  engine->SetWidthX(0, 8192);
  EXPECT_EQ(engine->Scale(0).StartX, 0);
  EXPECT_EQ(engine->Scale(0).EndX, 8191);
  EXPECT_EQ(engine->Scale(0).WidthX, 8192);
}

TEST_F(DrawSpectTest, WidthThatWouldEndAt8192MovesTheStartByOne) {
  Show(8000, 100);
  engine->SetWidthX(0, 193);
  EXPECT_EQ(engine->Scale(0).StartX, 7999);
  EXPECT_EQ(engine->Scale(0).EndX, 8191);
}

TEST_F(DrawSpectTest, WidthAbove8192IsRefused) {
  Show(100, 50);
  ExpectSaid("チャンネル数オーバー");
  engine->SetWidthX(0, 8193);
  EXPECT_EQ(engine->Scale(0).WidthX, 50);
  EXPECT_EQ(engine->Scale(0).StartX, 100);
}

TEST_F(DrawSpectTest, WidthBelowOneCountsAsOne) {
  engine->SetWidthX(0, 0);
  EXPECT_EQ(engine->Scale(0).WidthX, 1);
  EXPECT_EQ(engine->Scale(0).EndX, engine->Scale(0).StartX);
}

TEST_F(DrawSpectTest, NegativeStartIsToldAndBecomes0) {
  Show(100, 50);
  ExpectSaid("開始位置指定は1からです。");
  engine->SetStartX(0, -1);
  EXPECT_EQ(engine->Scale(0).StartX, 0);
  EXPECT_EQ(engine->Scale(0).EndX, 49);
}

TEST_F(DrawSpectTest, StartPastTheEndIsToldAndChangesNothing) {
  Show(100, 50);
  engine->SetStartX(0, 8142);
  EXPECT_EQ(engine->Scale(0).EndX, 8191);
  ExpectSaid("Ｃｈ軸最終位置計算値オーバー");
  engine->SetStartX(0, 8143);
  EXPECT_EQ(engine->Scale(0).StartX, 8142);
  EXPECT_EQ(engine->Scale(0).EndX, 8191);
}

TEST_F(DrawSpectTest, AViewOutsideOfTheTableFaults) {
  EXPECT_THROW(engine->Redraw(3), Fault);
  EXPECT_THROW(engine->SetWidthX(-1, 10), Fault);
}

TEST_F(DrawSpectTest, AViewWithoutSurfaceDrawsNothing) {
  engine->SetSurface(0, nullptr);
  Curve(Flat(10));
  engine->Redraw(0);
  engine->AddText(0, 1, 1, "a", 0, 0, -1);
  EXPECT_TRUE(surface.strokes.empty());
}

// Alias

TEST_F(DrawSpectTest, ACopiedViewShowsTheCurvesOfView0InItsOwnRange) {
  Curve(Flat(100));
  Show(0, 100);
  engine->SetYScale(0, kLogarithmic, 1000);
  RecordingSurface page;
  engine->CopyView(2, &page, kBack);
  EXPECT_EQ(engine->AliasView(), 2);
  EXPECT_EQ(engine->Scale(2).WidthX, 100);
  EXPECT_EQ(engine->Scale(2).YMode, kLogarithmic);
  EXPECT_EQ(engine->Scale(2).MaxY, 3);
  Show(10, 5, 2);
  engine->Redraw(2);
  EXPECT_EQ(page.Lines().size(), 4u);
  EXPECT_EQ(engine->Scale(0).StartX, 0);
}

TEST_F(DrawSpectTest, OperationsOnAnAliasWorkOnTheArraysOfView0) {
  engine->CopyView(1, &second, kBack);
  engine->AddPeakLine(1, 77);
  Curve(Flat(10), 3, 1);
  EXPECT_EQ(engine->PeakLinesOf(0).Count(), 1);
  EXPECT_EQ(engine->CurveOf(0, 3).Counts[9], 100);
}

TEST_F(DrawSpectTest, ThereIsOneAliasAndOpenViewEndsIt) {
  Curve(Flat(10), 0, 1);
  engine->CopyView(1, &second, kBack);
  RecordingSurface page;
  engine->CopyView(2, &page, kBack);
  EXPECT_EQ(engine->CurveOf(1, 0).Counts[0], 100);
  engine->OpenView(0, &surface, kBack);
  EXPECT_EQ(engine->AliasView(), 0);
}

// Curves

TEST_F(DrawSpectTest, SetSpectrumRegistersAndShows) {
  engine->SetSpectrum(0, 13, Flat(2048), kInk);
  const dorvane::Curve& curve = engine->CurveOf(0, 13);
  EXPECT_EQ(curve.Shown, -1);
  EXPECT_EQ(curve.Valid, -1);
  EXPECT_EQ(curve.Color, kInk);
  EXPECT_EQ(engine->Scale(0).PointCount, 2048);
}

TEST_F(DrawSpectTest, AShorterSpectrumLeavesNothingOfTheLongerOne) {
  Curve(Flat(100));
  Curve(Flat(50));
  EXPECT_EQ(engine->CurveOf(0, 0).Counts[49], 100);
  EXPECT_EQ(engine->CurveOf(0, 0).Counts[50], 0);
}

TEST_F(DrawSpectTest, ASpectrumIsCutAt8193Points) {
  Curve(Flat(9000));
  EXPECT_EQ(engine->Scale(0).PointCount, 8193);
  EXPECT_EQ(engine->CurveOf(0, 0).Counts[8192], 100);
}

TEST_F(DrawSpectTest, AGraphOutsideOfTheTableIsTold) {
  ExpectSaid("グラフNoｶﾞ規定範囲外です｡:14");
  engine->SetSpectrum(0, 14, Flat(10), kInk);
  ExpectSaid("グラフNoｶﾞ規定範囲外です｡:-1");
  engine->DrawCurve(0, -1);
  ExpectSaid("グラフNoｶﾞ規定範囲外です｡:14");
  engine->PaintCurve(0, 14);
  ExpectSaid("グラフNoｶﾞ規定範囲外です｡:99");
  engine->ClearPoints(0, 99);
  ExpectSaid("グラフNoｶﾞ規定範囲外です｡:14");
  engine->SetPointColor(0, 14, 1, 2, kOwn);
}

TEST_F(DrawSpectTest, ShowGraphOutsideOfTheTableHasItsOwnMessage) {
  ExpectSaid("グラフ番号が有効ではありません。");
  engine->ShowGraph(0, 14, -1);
}

TEST_F(DrawSpectTest, ShowGraphStoresAndRedraws) {
  Curve(Flat(10));
  Show(0, 10);
  engine->ShowGraph(0, 0, 0);
  EXPECT_EQ(surface.strokes.size(), 1u);  // the cleared ground
  engine->ShowGraph(0, 0, -1);
  EXPECT_EQ(surface.Lines().size(), 9u);
}

TEST_F(DrawSpectTest, AnotherColourKeepsTheCurveAndTheOwnColoursOfItsPoints) {
  Curve(Flat(10));
  engine->SetPointColor(0, 0, 1, 5, kOwn);
  engine->SetGraphColor(0, 0, Rgb(9, 8, 7));
  EXPECT_EQ(engine->CurveOf(0, 0).Color, Rgb(9, 8, 7));
  EXPECT_EQ(engine->CurveOf(0, 0).PointColors[3], kOwn);
  EXPECT_EQ(engine->CurveOf(0, 0).Counts[9], 100);
}

TEST_F(DrawSpectTest, ClearPointsRemovesOneCurveWithItsColours) {
  Curve(Flat(10), 0);
  Curve(Flat(10), 1);
  engine->SetPointColor(0, 0, 1, 5, kOwn);
  engine->ClearPoints(0, 0);
  EXPECT_EQ(engine->CurveOf(0, 0).Valid, 0);
  EXPECT_EQ(engine->CurveOf(0, 0).PointColors[3], 0);
  EXPECT_EQ(engine->CurveOf(0, 1).Valid, -1);
}

TEST_F(DrawSpectTest, ClearViewRemovesAllCurvesAndClearsTheSurface) {
  Curve(Flat(10), 0);
  Curve(Flat(10), 13);
  engine->ClearView(0);
  EXPECT_EQ(engine->CurveOf(0, 13).Shown, 0);
  ASSERT_EQ(surface.strokes.size(), 1u);
  EXPECT_EQ(surface.strokes[0].kind, Stroke::Kind::Clear);
}

// Places

TEST_F(DrawSpectTest, AFractionOfTheWidthIsAChannelAndBack) {
  Show(100, 101);
  EXPECT_EQ(engine->ChannelAtX(0, 0), 100);
  EXPECT_EQ(engine->ChannelAtX(0, 0.254), 125);
  EXPECT_EQ(engine->ChannelAtX(0, 1), 200);
  EXPECT_DOUBLE_EQ(engine->XOfChannel(0, 125), 0.25);
}

TEST_F(DrawSpectTest, AFractionOutsideOfTheWidthIsTheFirstOrLastChannel) {
  Show(100, 101);
  EXPECT_EQ(engine->ChannelAtX(0, -3), 100);
  EXPECT_EQ(engine->ChannelAtX(0, 7), 200);
  EXPECT_EQ(engine->ChannelAtX(0, std::nan("")), 100);
}

TEST_F(DrawSpectTest, ASingleChannelLiesAtTheLeftEdge) {
  Show(100, 1);
  EXPECT_EQ(engine->ChannelAtX(0, 0.7), 100);
  EXPECT_EQ(engine->XOfChannel(0, 100), 0);
}

}  // namespace
}  // namespace dorvane
