#include "processing/RoiOpe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "support/ScriptedDialogs.h"
#include "workspace/RecordingListener.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kWin = 1;
constexpr int kRow = 2;
constexpr int kData = 5;
constexpr int kOther = 6;
constexpr Color kRed = 0xFF;

class RoiOpe : public testing::Test {
 protected:
  RoiOpe() {
    GraphSlot& slot = workspace_->Slots[kRow];
    slot.State = kRowSaved;
    slot.WinNo = kWin;
    slot.DataNo = kData;
    workspace_->Channels[kData].Count = 200;
    workspace_->Channels[kOther].Count = 200;
  }

  int Add(int start, int end, int data_no = kData, Color color = kRed) {
    return RoiAdd(list_, kWin, data_no, start, end, color);
  }
  void Fill(int from, const std::vector<std::int32_t>& counts) {
    for (const std::int32_t count : counts) workspace_->Channels[kData].Counts[from++] = count;
  }
  const RoiRec& Roi(int index) const { return workspace_->Regions.Rois[index]; }
  // A region whose only counts are in one channel.
  void AddWithPeak(int start, int end, int peak) {
    Fill(peak, {100});
    Add(start, end);
  }
  std::vector<int> Starts() const {
    std::vector<int> starts;
    for (int i = 0; i < workspace_->Regions.RoiCount; ++i) starts.push_back(Roi(i).Start);
    return starts;
  }
  int Find(int data_no, int channel) const { return RoiFind(*workspace_, data_no, channel); }
  int Jump(int cursor, int direction) const {
    return RoiJumpTarget(*workspace_, cursor, direction);
  }

  std::unique_ptr<Workspace> workspace_ = std::make_unique<Workspace>();
  ViewState view_;
  RecordingListener listener_;
  ScriptedDialogs dialogs_;
  GraphList list_{*workspace_, view_, listener_, dialogs_};
};

TEST_F(RoiOpe, RegionsStandInTheOrderOfTheirStarts) {
  EXPECT_EQ(Add(50, 60), 0);
  EXPECT_EQ(Add(10, 20), 0);
  EXPECT_EQ(Add(30, 40), 1);
  EXPECT_THAT(Starts(), ElementsAre(10, 30, 50));
}

TEST_F(RoiOpe, EqualStartsKeepTheOrderOfTheirInsertion) {
  Add(30, 40);
  EXPECT_EQ(Add(30, 50), 1);
  EXPECT_EQ(Roi(0).End, 40);
  EXPECT_EQ(Roi(1).End, 50);
}

TEST_F(RoiOpe, AnAddedRegionHasItsSpectrumColourAndSums) {
  Fill(11, {3, 7, 2});
  Add(10, 20, kData, 0x1234);
  RoiRec expected;
  expected.DataNo = kData;
  expected.Start = 10;
  expected.End = 20;
  expected.PeakVal = 7;
  expected.PeakCh = 12;
  expected.Total = 12;
  expected.Color = 0x1234;
  EXPECT_EQ(Roi(0), expected);
}

TEST_F(RoiOpe, TheEleventhRegionIsRefusedAndLeavesTheTableAlone) {
  for (int i = 0; i < 10; ++i) EXPECT_EQ(Add(10 * i, 10 * i + 5), i);
  const RoiTable before = workspace_->Regions;
  listener_.notices.clear();
  EXPECT_EQ(Add(7, 9), -1);
  EXPECT_EQ(workspace_->Regions, before);
  EXPECT_THAT(listener_.notices, IsEmpty());
}

TEST_F(RoiOpe, ARegionOfNoSpectrumIsRefused) {
  EXPECT_EQ(Add(10, 20, -1), -1);
  EXPECT_EQ(Add(10, 20, 14), -1);
  EXPECT_EQ(workspace_->Regions.RoiCount, 0);
}

TEST_F(RoiOpe, AnAddedRegionIsMarkedThenTold) {
  Add(10, 20);
  EXPECT_THAT(listener_.notices, ElementsAre("region 1 5 10..20", "regions"));
}

TEST_F(RoiOpe, AChangedRegionIsUnmarkedCalculatedAnewAndMarked) {
  Fill(60, {9});
  Add(10, 20);
  listener_.notices.clear();
  EXPECT_EQ(RoiChange(list_, kWin, 0, 55, 65, 0x77), 0);
  EXPECT_EQ(RoiGet(*workspace_, 0), (RoiRange{55, 65, 0x77}));
  EXPECT_EQ(Roi(0).Total, 9);
  EXPECT_THAT(listener_.notices,
              ElementsAre("no region 1 5 10..20", "region 1 5 55..65", "regions"));
}

TEST_F(RoiOpe, AChangePastANeighbourLeavesTheTableUnsortedAsIsMeant) {
  Add(10, 20);
  Add(30, 40);
  RoiChange(list_, kWin, 0, 70, 80, kRed);
  EXPECT_THAT(Starts(), ElementsAre(70, 30));
}

TEST_F(RoiOpe, AnAddToAnUnsortedTableGoesInFrontOfTheFirstGreaterStart) {
  Add(10, 20);
  Add(30, 40);
  RoiChange(list_, kWin, 0, 70, 80, kRed);
  EXPECT_EQ(Add(50, 60), 0);
  EXPECT_THAT(Starts(), ElementsAre(50, 70, 30));
}

TEST_F(RoiOpe, AChangeOfNoRegionIsRefused) {
  Add(10, 20);
  listener_.notices.clear();
  for (const int index : {-1, 1, 10}) {
    EXPECT_EQ(RoiChange(list_, kWin, index, 1, 2, kRed), -1) << index;
  }
  EXPECT_THAT(Starts(), ElementsAre(10));
  EXPECT_THAT(listener_.notices, IsEmpty());
}

TEST_F(RoiOpe, ARegionOutsideOfTheTableHasNoRange) {
  Add(10, 20);
  EXPECT_EQ(RoiGet(*workspace_, 0), (RoiRange{10, 20, kRed}));
  EXPECT_EQ(RoiGet(*workspace_, -1), std::nullopt);
  EXPECT_EQ(RoiGet(*workspace_, 1), std::nullopt);
}

TEST_F(RoiOpe, LaterRegionsMoveUpWhenOneIsDeleted) {
  Add(10, 20);
  Add(30, 40);
  Add(50, 60);
  listener_.notices.clear();
  EXPECT_EQ(RoiDelete(list_, kWin, 1), 0);
  EXPECT_THAT(Starts(), ElementsAre(10, 50));
  EXPECT_THAT(listener_.notices, ElementsAre("no region 1 5 30..40", "regions"));
}

TEST_F(RoiOpe, TheLastOfTenRegionsCanBeDeleted) {
  for (int i = 0; i < 10; ++i) Add(10 * i, 10 * i + 5);
  EXPECT_EQ(RoiDelete(list_, kWin, 9), 0);
  EXPECT_EQ(workspace_->Regions.RoiCount, 9);
}

TEST_F(RoiOpe, NoRegionIsDeletedOutsideOfTheTable) {
  EXPECT_EQ(RoiDelete(list_, kWin, 0), -1);
  Add(10, 20);
  EXPECT_EQ(RoiDelete(list_, kWin, -1), -1);
  EXPECT_EQ(RoiDelete(list_, kWin, 1), -1);
  EXPECT_EQ(workspace_->Regions.RoiCount, 1);
}

TEST_F(RoiOpe, AChannelOnTheStartIsNotInTheRegion) {
  Add(10, 20);
  EXPECT_EQ(Find(kAnySpectrum, 10), -1);
}

TEST_F(RoiOpe, AChannelOnTheEndIsNotInTheRegionAsIsMeant) {
  Add(10, 20);
  Add(20, 30);
  EXPECT_EQ(Find(kAnySpectrum, 20), -1);
  EXPECT_EQ(Find(kAnySpectrum, 19), 0);
  EXPECT_EQ(Find(kAnySpectrum, 21), 1);
}

TEST_F(RoiOpe, TheFirstOfOverlappingRegionsIsFound) {
  Add(10, 50);
  Add(20, 60);
  EXPECT_EQ(Find(kAnySpectrum, 30), 0);
  EXPECT_EQ(Find(kAnySpectrum, 55), 1);
}

TEST_F(RoiOpe, OnlyRegionsOfTheSpectrumAreFound) {
  Add(10, 50, kOther);
  Add(20, 60, kData);
  EXPECT_EQ(Find(kData, 30), 1);
  EXPECT_EQ(Find(kOther, 30), 0);
  EXPECT_EQ(Find(7, 30), -1);
}

TEST_F(RoiOpe, RegionsThatTouchTheEndsOfARangeAreInIt) {
  Add(10, 20);
  Add(30, 40);
  Add(35, 61);
  Add(50, 60);
  const RoisInRange inside = RoiCountIn(*workspace_, kAnySpectrum, 30, 60);
  EXPECT_EQ(inside.count, 2);
  EXPECT_EQ(inside.first, 1);
}

TEST_F(RoiOpe, ARangeWithoutRegionsHasNoFirst) {
  Add(10, 20);
  const RoisInRange inside = RoiCountIn(*workspace_, kAnySpectrum, 11, 20);
  EXPECT_EQ(inside.count, 0);
  EXPECT_EQ(inside.first, -1);
}

TEST_F(RoiOpe, OnlyRegionsOfTheSpectrumAreCounted) {
  Add(10, 20, kOther);
  Add(30, 40, kData);
  Add(50, 60, kOther);
  const RoisInRange inside = RoiCountIn(*workspace_, kOther, 0, 100);
  EXPECT_EQ(inside.count, 2);
  EXPECT_EQ(inside.first, 0);
  EXPECT_EQ(RoiCountIn(*workspace_, kData, 0, 100).first, 1);
}

TEST_F(RoiOpe, BothEndsBelongToTheSum) {
  Fill(9, {1, 10, 100, 1000, 10000});
  Add(10, 12);
  EXPECT_EQ(Roi(0).Total, 1110);
  EXPECT_EQ(Roi(0).PeakVal, 1000);
  EXPECT_EQ(Roi(0).PeakCh, 12);
}

TEST_F(RoiOpe, EqualCountsHaveTheirPeakInTheFirstChannel) {
  Fill(10, {4, 4, 4});
  Add(10, 12);
  EXPECT_EQ(Roi(0).PeakCh, 10);
  EXPECT_EQ(Roi(0).PeakVal, 4);
  EXPECT_EQ(Roi(0).Total, 12);
}

TEST_F(RoiOpe, ARegionWithoutCountsHasItsPeakInChannelZeroAsIsMeant) {
  Add(10, 20);
  EXPECT_EQ(Roi(0).PeakVal, 0);
  EXPECT_EQ(Roi(0).PeakCh, 0);
  EXPECT_EQ(Roi(0).Total, 0);
}

TEST_F(RoiOpe, CalculatingAgainDoesNotAddUp) {
  Fill(10, {4, 4, 4});
  Add(10, 12);
  RoiCalc(*workspace_, 0);
  EXPECT_EQ(Roi(0).Total, 12);
}

TEST_F(RoiOpe, SumsOfLargeCountsDoNotOverflow) {
  Fill(10, {2147483647, 2147483647});
  Add(10, 11);
  EXPECT_EQ(Roi(0).Total, 4294967294.0);
}

TEST_F(RoiOpe, ChannelsPastTheSpectrumAreNotSummed) {
  Fill(199, {5, 70});  // the spectrum has 200 channels
  Add(190, 8192);
  EXPECT_EQ(Roi(0).Total, 5);
  EXPECT_EQ(Roi(0).End, 8192);
}

TEST_F(RoiOpe, ARegionOfASpectrumThatIsClosedHasNoCounts) {
  Fill(10, {4, 4, 4});
  Add(10, 12);
  workspace_->Channels[kData] = ChannelBlock{};
  RoiCalc(*workspace_, 0);
  EXPECT_EQ(Roi(0).Total, 0);
  EXPECT_EQ(Roi(0).PeakCh, 0);
}

TEST_F(RoiOpe, NothingIsCalculatedOutsideOfTheTable) {
  const RoiTable before = workspace_->Regions;
  for (const int index : {-1, 0, 10}) RoiCalc(*workspace_, index);
  EXPECT_EQ(workspace_->Regions, before);
}

TEST_F(RoiOpe, AJumpGoesToTheNearestPeakOnThatSide) {
  AddWithPeak(10, 20, 15);
  AddWithPeak(30, 40, 35);
  AddWithPeak(50, 60, 55);
  EXPECT_EQ(Jump(40, 0), 1);
  EXPECT_EQ(Jump(40, 1), 2);
}

TEST_F(RoiOpe, AJumpFromAPeakGoesOneFurther) {
  AddWithPeak(10, 20, 15);
  AddWithPeak(30, 40, 35);
  AddWithPeak(50, 60, 55);
  EXPECT_EQ(Jump(35, 0), 0);
  EXPECT_EQ(Jump(35, 1), 2);
}

TEST_F(RoiOpe, AJumpFromAPeakThatTwoRegionsShareGoesToTheOtherOfThem) {
  AddWithPeak(10, 40, 30);
  AddWithPeak(20, 50, 30);
  AddWithPeak(60, 70, 65);
  EXPECT_EQ(Jump(30, 1), 1);
  EXPECT_EQ(Jump(30, 0), 0);
}

TEST_F(RoiOpe, NoJumpLeadsPastTheEnds) {
  AddWithPeak(10, 20, 15);
  AddWithPeak(30, 40, 35);
  EXPECT_EQ(Jump(36, 1), -1);  // right, behind the last
  EXPECT_EQ(Jump(35, 1), -1);  // right, on the last
  EXPECT_EQ(Jump(14, 0), -1);
  EXPECT_EQ(Jump(15, 0), -1);
}

TEST_F(RoiOpe, NoJumpInAnEmptyTable) {
  EXPECT_EQ(Jump(100, 0), -1);
  EXPECT_EQ(Jump(100, 1), -1);
}

TEST_F(RoiOpe, AllRegionsInTheListAreDrawnInTheirWindows) {
  GraphSlot& slot = workspace_->Slots[0];
  slot.State = kRowSaved;
  slot.DataNo = kOther;
  Add(10, 20);
  Add(30, 40, kOther);
  Add(50, 60, 0);  // in no row that holds a graph
  listener_.notices.clear();
  RoiDrawAll(list_);
  EXPECT_THAT(listener_.notices,
              ElementsAre("region 1 5 10..20", "region 0 6 30..40", "redraw 0", "redraw 1"));
}

TEST_F(RoiOpe, ClearEmptiesTheTableAndRemovesTheMarks) {
  Add(10, 20);
  Add(30, 40, kOther);  // in no row
  listener_.notices.clear();
  RoiClear(list_);
  EXPECT_EQ(workspace_->Regions.RoiCount, 0);
  EXPECT_THAT(listener_.notices, ElementsAre("no region 1 5 10..20", "regions"));
}

TEST_F(RoiOpe, ClearOfAnEmptyTableTellsNothing) {
  RoiClear(list_);
  EXPECT_THAT(listener_.notices, IsEmpty());
}

ViewState ViewWithArea(std::int16_t start, std::int16_t end) {
  ViewState view;
  view.AreaStart = start;
  view.AreaEnd = end;
  return view;
}

void ExpectNoArea(const AreaRegion& area) {
  EXPECT_FALSE(area.valid);
  EXPECT_EQ(area.start, -1);
  EXPECT_EQ(area.end, -1);
}

TEST(AreaRegions, AreaWithTwoDifferentEndsIsValid) {
  ViewState view = ViewWithArea(10, 90);
  const AreaRegion area = GetRegions(view);
  EXPECT_TRUE(area.valid);
  EXPECT_EQ(area.start, 10);
  EXPECT_EQ(area.end, 90);
}

TEST(AreaRegions, AreaDrawnFromRightToLeftComesOrdered) {
  ViewState view = ViewWithArea(90, 0);
  const AreaRegion area = GetRegions(view);
  EXPECT_TRUE(area.valid);
  EXPECT_EQ(area.start, 0);
  EXPECT_EQ(area.end, 90);
}

TEST(AreaRegions, AreaWithEqualEndsIsNone) {
  ViewState view = ViewWithArea(10, 10);
  ExpectNoArea(GetRegions(view));
}

TEST(AreaRegions, AreaWithOneEndIsNone) {
  ViewState left = ViewWithArea(10, kNoEnd);
  ExpectNoArea(GetRegions(left));
  ViewState right = ViewWithArea(kNoEnd, 10);
  ExpectNoArea(GetRegions(right));
}

TEST(AreaRegions, LookingAtTheAreaLeavesItsEnds) {
  const ViewState view = ViewWithArea(90, 10);
  const AreaRegion area = MarkedArea(view);
  EXPECT_TRUE(area.valid);
  EXPECT_EQ(area.start, 10);
  EXPECT_EQ(area.end, 90);
  EXPECT_EQ(view.AreaStart, 90);
  EXPECT_EQ(view.AreaEnd, 10);
}

TEST(AreaRegions, AskingClearsTheEndsWhateverIsFound) {
  for (ViewState view : {ViewWithArea(10, 90), ViewWithArea(10, 10), ViewWithArea(10, kNoEnd)}) {
    GetRegions(view);
    EXPECT_EQ(view.AreaStart, kNoEnd);
    EXPECT_EQ(view.AreaEnd, kNoEnd);
    ExpectNoArea(GetRegions(view));
  }
}

}  // namespace
}  // namespace dorvane
