#include "processing/PeakOpe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <numbers>

#include "support/ScriptedDialogs.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

constexpr int kWin = 1;
constexpr int kRow = 2;
constexpr int kData = 5;

class RecordingListener : public WorkspaceListener {
 public:
  std::vector<std::string> calls;

  void PeakMarked(int win_no, int data_no, const PeakRec& peak) override {
    Put("mark", win_no, data_no, peak);
  }
  void PeakUnmarked(int win_no, int data_no, const PeakRec& peak) override {
    Put("unmark", win_no, data_no, peak);
  }
  void PeakLinesCleared(int win_no) override { calls.push_back("clear " + std::to_string(win_no)); }

 private:
  void Put(const std::string& call, int win_no, int data_no, const PeakRec& peak) {
    calls.push_back(call + " " + std::to_string(win_no) + " " + std::to_string(data_no) + " " +
                    std::to_string(static_cast<int>(peak.Center)));
  }
};

class PeakOpe : public testing::Test {
 protected:
  PeakOpe() {
    workspace_->Slots[kRow].DataNo = kData;
    workspace_->Channels[kData].Count = 200;
  }

  static PeakRec At(double center, double half_width = 5) {
    PeakRec peak;
    peak.Center = center;
    peak.HalfWidth = half_width;
    return peak;
  }
  int Insert(const PeakRec& peak) { return PeakInsert(list_, kWin, kRow, peak); }
  PeakTable& Table() { return workspace_->Peaks[kData]; }
  std::vector<double> Centers() {
    std::vector<double> centers;
    for (int i = 0; i < Table().Count; ++i) centers.push_back(Table().Peaks[i].Center);
    return centers;
  }
  int Jump(int cursor, JumpDirection direction) {
    return PeakJumpTarget(*workspace_, kData, cursor, direction);
  }

  std::unique_ptr<Workspace> workspace_ = std::make_unique<Workspace>();
  ViewState view_;
  RecordingListener listener_;
  ScriptedDialogs dialogs_;
  GraphList list_{*workspace_, view_, listener_, dialogs_};
};

TEST_F(PeakOpe, InsertKeepsTheTableAscendingAndMarksThePeak) {
  EXPECT_EQ(Insert(At(50)), 0);
  EXPECT_EQ(Insert(At(20)), 0);
  EXPECT_EQ(Insert(At(30)), 1);
  EXPECT_THAT(Centers(), ElementsAre(20, 30, 50));
  EXPECT_THAT(listener_.calls, ElementsAre("mark 1 5 50", "mark 1 5 20", "mark 1 5 30"));
}

TEST_F(PeakOpe, EqualCentresKeepTheOrderOfInsertion) {
  Insert(At(50, 1));
  EXPECT_EQ(Insert(At(50, 2)), 1);
  EXPECT_EQ(Insert(At(50, 3)), 2);
  EXPECT_EQ(Table().Peaks[0].HalfWidth, 1);
  EXPECT_EQ(Table().Peaks[2].HalfWidth, 3);
}

TEST_F(PeakOpe, PeakNumberHundredAndOneIsRefused) {
  for (int i = 1; i <= 100; ++i) ASSERT_EQ(Insert(At(i)), i - 1);
  const PeakTable before = Table();
  listener_.calls.clear();
  EXPECT_EQ(Insert(At(0.5)), -1);
  EXPECT_EQ(Table(), before);
  EXPECT_TRUE(listener_.calls.empty());
}

TEST_F(PeakOpe, PeakAtChannelZeroIsRefusedAsIsMeant) {
  EXPECT_EQ(Insert(At(0)), -1);
  EXPECT_EQ(Table().Count, 0);
}

TEST_F(PeakOpe, PeakOfANegativeWindowIsRefused) {
  EXPECT_EQ(PeakInsert(list_, -1, kRow, At(50)), -1);
  EXPECT_EQ(Table().Count, 0);
}

TEST_F(PeakOpe, RegionOfAnEntry) {
  PeakRec peak = At(50);
  peak.RegionStart = 40;
  peak.RegionEnd = 61;
  Insert(peak);
  const auto region = PeakGetRegion(*workspace_, kData, 0);
  ASSERT_TRUE(region);
  EXPECT_EQ(region->start, 40);
  EXPECT_EQ(region->end, 61);
}

TEST_F(PeakOpe, RegionOfAnIndexOutsideIsNone) {
  Insert(At(50));
  EXPECT_FALSE(PeakGetRegion(*workspace_, kData, -1));
  EXPECT_FALSE(PeakGetRegion(*workspace_, kData, 1));
  EXPECT_FALSE(PeakGetRegion(*workspace_, kData, 100));
}

TEST_F(PeakOpe, DeleteClosesTheGapAndUnmarksThePeak) {
  for (const double center : {20, 30, 50}) Insert(At(center));
  listener_.calls.clear();
  EXPECT_EQ(PeakDelete(list_, kWin, kRow, 1), 0);
  EXPECT_THAT(Centers(), ElementsAre(20, 50));
  EXPECT_THAT(listener_.calls, ElementsAre("unmark 1 5 30"));
}

TEST_F(PeakOpe, DeleteFromAFullTable) {
  for (int i = 1; i <= 100; ++i) Insert(At(i));
  EXPECT_EQ(PeakDelete(list_, kWin, kRow, 0), 0);
  EXPECT_EQ(PeakDelete(list_, kWin, kRow, 98), 0);
  EXPECT_EQ(Table().Count, 98);
  EXPECT_EQ(Centers().front(), 2);
  EXPECT_EQ(Centers().back(), 99);
}

TEST_F(PeakOpe, DeleteOutsideOfTheTableDoesNothing) {
  EXPECT_EQ(PeakDelete(list_, kWin, kRow, 0), -1);
  Insert(At(50));
  listener_.calls.clear();
  EXPECT_EQ(PeakDelete(list_, kWin, kRow, -1), -1);
  EXPECT_EQ(PeakDelete(list_, kWin, kRow, 1), -1);
  EXPECT_EQ(Table().Count, 1);
  EXPECT_TRUE(listener_.calls.empty());
}

TEST_F(PeakOpe, ClearEmptiesTheTableAndTheLinesOfTheWindow) {
  Insert(At(50));
  listener_.calls.clear();
  PeakClear(list_, kWin, kRow);
  EXPECT_EQ(Table().Count, 0);
  EXPECT_THAT(listener_.calls, ElementsAre("clear 1"));
}

TEST_F(PeakOpe, FindTakesTheFirstPeakThatHoldsTheChannel) {
  for (const double center : {20, 24, 50}) Insert(At(center));
  EXPECT_EQ(PeakFindAt(*workspace_, kData, 22), 0);
  EXPECT_EQ(PeakFindAt(*workspace_, kData, 27), 1);
  EXPECT_EQ(PeakFindAt(*workspace_, kData, 40), -1);
}

TEST_F(PeakOpe, PeakDoesNotHoldTheChannelOneHalfWidthAway) {
  Insert(At(50, 5));
  EXPECT_EQ(PeakFindAt(*workspace_, kData, 55), -1);
  EXPECT_EQ(PeakFindAt(*workspace_, kData, 45), -1);
  EXPECT_EQ(PeakFindAt(*workspace_, kData, 54.999), 0);
}

TEST_F(PeakOpe, CountIncludesBothEnds) {
  for (const double center : {20, 30, 40, 50}) Insert(At(center));
  const PeaksInRange found = PeakCountIn(*workspace_, kData, 30, 50);
  EXPECT_EQ(found.count, 3);
  EXPECT_EQ(found.first, 1);
}

TEST_F(PeakOpe, FirstIndexOfAnEmptyRangeIs65535) {
  Insert(At(20));
  const PeaksInRange found = PeakCountIn(*workspace_, kData, 21, 50);
  EXPECT_EQ(found.count, 0);
  EXPECT_EQ(found.first, 65535);
}

TEST_F(PeakOpe, JumpGoesToTheNearestPeakOnThatSide) {
  for (const double center : {20.4, 30.4, 50.4}) Insert(At(center));
  EXPECT_EQ(Jump(40, JumpDirection::Left), 1);
  EXPECT_EQ(Jump(40, JumpDirection::Right), 2);
}

TEST_F(PeakOpe, JumpFromAPeakGoesOneFurther) {
  for (const double center : {20.4, 30.4, 50.4}) Insert(At(center));
  EXPECT_EQ(Jump(30, JumpDirection::Left), 0);
  EXPECT_EQ(Jump(30, JumpDirection::Right), 2);
}

TEST_F(PeakOpe, JumpBeyondTheOutermostPeakStays) {
  EXPECT_EQ(Jump(30, JumpDirection::Left), -1);
  EXPECT_EQ(Jump(30, JumpDirection::Right), -1);
  for (const double center : {20, 50}) Insert(At(center));
  EXPECT_EQ(Jump(10, JumpDirection::Left), -1);
  EXPECT_EQ(Jump(20, JumpDirection::Left), -1);
  EXPECT_EQ(Jump(50, JumpDirection::Right), -1);
  EXPECT_EQ(Jump(60, JumpDirection::Right), -1);
}

TEST_F(PeakOpe, JumpRoundsCentresToTheEvenNeighbour) {
  Insert(At(30.5));
  EXPECT_EQ(Jump(31, JumpDirection::Left), 0);
  EXPECT_EQ(Jump(30, JumpDirection::Left), -1);  // stands on it
}

class PeakBorders : public PeakOpe {
 protected:
  void InsertRegion(double center, int start, int end) {
    PeakRec peak = At(center);
    peak.RegionStart = static_cast<std::int16_t>(start);
    peak.RegionEnd = static_cast<std::int16_t>(end);
    Insert(peak);
  }
  std::int32_t& Count(int channel) { return workspace_->Channels[kData].Counts[channel]; }
  const PeakRec& Peak(int index) { return Table().Peaks[index]; }
};

TEST_F(PeakBorders, OverlappingRegionsMeetOneChannelRightOfTheLowestCountAsIsMeant) {
  InsertRegion(20, 10, 35);
  InsertRegion(40, 25, 50);
  workspace_->Channels[kData].Counts.fill(100);
  Count(30) = 5;
  PeakFixBorders(list_, kWin, kRow, 0, 1);
  EXPECT_EQ(Peak(0).RegionEnd, 30);
  EXPECT_EQ(Peak(1).RegionStart, 31);
}

TEST_F(PeakBorders, ValleyMayLieJustBelowTheRightCentre) {
  InsertRegion(20, 10, 35);
  InsertRegion(40, 25, 50);
  workspace_->Channels[kData].Counts.fill(100);
  Count(39) = 5;
  PeakFixBorders(list_, kWin, kRow, 0, 1);
  EXPECT_EQ(Peak(0).RegionEnd, 39);
  EXPECT_EQ(Peak(1).RegionStart, 40);
}

TEST_F(PeakBorders, FirstOfEqualValleysCounts) {
  InsertRegion(20, 10, 35);
  InsertRegion(40, 25, 50);
  workspace_->Channels[kData].Counts.fill(100);
  Count(26) = Count(33) = 5;
  PeakFixBorders(list_, kWin, kRow, 0, 1);
  EXPECT_EQ(Peak(1).RegionStart, 27);
}

TEST_F(PeakBorders, WithoutAValleyTheLeftRegionKeepsItsEndLessOne) {
  InsertRegion(20, 10, 35);
  InsertRegion(40, 25, 50);
  PeakFixBorders(list_, kWin, kRow, 0, 1);
  EXPECT_EQ(Peak(0).RegionEnd, 34);
  EXPECT_EQ(Peak(1).RegionStart, 35);
}

TEST_F(PeakBorders, RegionsThatTouchStayAndAreUnmarked) {
  InsertRegion(20, 10, 30);
  InsertRegion(40, 30, 50);
  listener_.calls.clear();
  PeakFixBorders(list_, kWin, kRow, 0, 1);
  EXPECT_EQ(Peak(0).RegionEnd, 30);
  EXPECT_EQ(Peak(1).RegionStart, 30);
  EXPECT_THAT(listener_.calls, ElementsAre("unmark 1 5 20", "unmark 1 5 40"));
}

TEST_F(PeakBorders, MarkedPeaksOfARangeHaveTheirMarksAgain) {
  InsertRegion(20, 10, 30);
  InsertRegion(40, 30, 50);
  listener_.calls.clear();
  PeakFixMarkedBorders(list_, kWin, kRow, 0, 1);
  EXPECT_THAT(listener_.calls,
              ElementsAre("unmark 1 5 20", "unmark 1 5 40", "mark 1 5 20", "mark 1 5 40"));
}

TEST_F(PeakBorders, ASingleMarkedPeakKeepsItsMark) {
  InsertRegion(20, 10, 30);
  listener_.calls.clear();
  PeakFixMarkedBorders(list_, kWin, kRow, 0, 0);
  PeakFixMarkedBorders(list_, kWin, kRow, 0, -1);
  EXPECT_TRUE(listener_.calls.empty());
}

TEST_F(PeakBorders, EveryPairOfTheRangeIsSettled) {
  workspace_->Channels[kData].Counts.fill(100);
  InsertRegion(20, 10, 35);
  InsertRegion(40, 25, 65);
  InsertRegion(60, 45, 75);
  InsertRegion(80, 65, 95);
  Count(30) = Count(50) = Count(70) = 5;
  PeakFixBorders(list_, kWin, kRow, 0, 2);
  EXPECT_EQ(Peak(1).RegionStart, 31);
  EXPECT_EQ(Peak(1).RegionEnd, 50);
  EXPECT_EQ(Peak(2).RegionStart, 51);
  EXPECT_EQ(Peak(2).RegionEnd, 75);
}

TEST_F(PeakBorders, CentreThatRoundsToChannelZeroIsARangeFailure) {
  InsertRegion(0.5, 0, 35);
  InsertRegion(40, 25, 50);
  try {
    PeakFixBorders(list_, kWin, kRow, 0, 1);
    ADD_FAILURE();
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.Code(), FaultCode::Subscript);
  }
}

TEST_F(PeakBorders, CentreBehindTheTableIsARangeFailure) {
  InsertRegion(20, 10, 35);
  InsertRegion(8192, 25, 50);
  EXPECT_THROW(PeakFixBorders(list_, kWin, kRow, 0, 1), Fault);
}

TEST_F(PeakOpe, AreaOfAGaussianIsItsIntegral) {
  // Integral of h exp(-ln2 (x/w)^2): h w sqrt(pi / ln2). The sum over whole channels agrees to far
  // below 1E-9 of it.
  PeakRec peak = At(100.3, 6);
  peak.Height = 1000;
  peak.GaussRatio = 1;
  Insert(peak);
  PeakAreaCalc(*workspace_, kData, 0);
  EXPECT_NEAR(Table().Peaks[0].Amplitude,
              1000 * 6 * std::sqrt(std::numbers::pi / std::numbers::ln2), 1e-5);
}

TEST_F(PeakOpe, AreaOfALorentzianIsSummedOverTheChannelsOfTheSpectrum) {
  // Three channels around the centre, by hand: 1/2 + 1 + 1/2 of the height.
  workspace_->Channels[kData].Count = 3;
  PeakRec peak = At(1, 1);
  peak.Height = 100;
  peak.GaussRatio = 0;
  Insert(peak);
  PeakAreaCalc(*workspace_, kData, 0);
  EXPECT_NEAR(Table().Peaks[0].Amplitude, 200, 1e-9);
}

TEST_F(PeakOpe, AreaOfAMixedPeakSharesTheHeightAndLeavesTheBackgroundOut) {
  // At half width both shapes are half as high, so that the share doesn't matter in these three
  // channels.
  workspace_->Channels[kData].Count = 3;
  PeakRec peak = At(1, 1);
  peak.Height = 100;
  peak.GaussRatio = 0.3;
  peak.BackConst = 1000;
  peak.BackSlope = 10;
  Insert(peak);
  PeakAreaCalc(*workspace_, kData, 0);
  EXPECT_NEAR(Table().Peaks[0].Amplitude, 200, 1e-9);
}

TEST_F(PeakOpe, AreaOfAPeakWithoutWidthIsZero) {
  PeakRec peak = At(50, 0);
  peak.Height = 100;
  Insert(peak);
  PeakAreaCalc(*workspace_, kData, 0);
  EXPECT_EQ(Table().Peaks[0].Amplitude, 0);
}

}  // namespace
}  // namespace dorvane
