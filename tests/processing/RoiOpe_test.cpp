#include "processing/RoiOpe.h"

#include <gtest/gtest.h>

namespace dorvane {
namespace {

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

TEST(RoiOpe, AreaWithTwoDifferentEndsIsValid) {
  ViewState view = ViewWithArea(10, 90);
  const AreaRegion area = GetRegions(view);
  EXPECT_TRUE(area.valid);
  EXPECT_EQ(area.start, 10);
  EXPECT_EQ(area.end, 90);
}

TEST(RoiOpe, AreaDrawnFromRightToLeftComesOrdered) {
  ViewState view = ViewWithArea(90, 0);
  const AreaRegion area = GetRegions(view);
  EXPECT_TRUE(area.valid);
  EXPECT_EQ(area.start, 0);
  EXPECT_EQ(area.end, 90);
}

TEST(RoiOpe, AreaWithEqualEndsIsNone) {
  ViewState view = ViewWithArea(10, 10);
  ExpectNoArea(GetRegions(view));
}

TEST(RoiOpe, AreaWithOneEndIsNone) {
  ViewState left = ViewWithArea(10, kNoEnd);
  ExpectNoArea(GetRegions(left));
  ViewState right = ViewWithArea(kNoEnd, 10);
  ExpectNoArea(GetRegions(right));
}

TEST(RoiOpe, AskingClearsTheEndsWhateverIsFound) {
  for (ViewState view : {ViewWithArea(10, 90), ViewWithArea(10, 10), ViewWithArea(10, kNoEnd)}) {
    GetRegions(view);
    EXPECT_EQ(view.AreaStart, kNoEnd);
    EXPECT_EQ(view.AreaEnd, kNoEnd);
    ExpectNoArea(GetRegions(view));
  }
}

TEST(RoiOpe, ClearEmptiesTheTable) {
  RoiTable regions;
  regions.RoiCount = 3;
  RoiClear(regions);
  EXPECT_EQ(regions.RoiCount, 0);
}

}  // namespace
}  // namespace dorvane
