#include "processing/BackGraund.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ScriptedDialogs.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

class BackGraund : public testing::Test {
 protected:
  void Fill(auto count_of_channel) {
    for (int i = 0; i < kMaxChannels; ++i) block_->Counts[i] = count_of_channel(i);
  }
  void Estimate(int interval, int times, int n) {
    EstimateBackground(static_cast<std::int16_t>(interval), static_cast<std::int16_t>(times),
                       block_->Counts, static_cast<std::int16_t>(n), dialogs_);
  }
  std::int32_t At(int channel) const { return block_->Counts[channel]; }

  ScriptedDialogs dialogs_;
  std::unique_ptr<ChannelBlock> block_ = std::make_unique<ChannelBlock>();
};

TEST_F(BackGraund, IntervalOfZeroOrLessTellsAndChangesNothing) {
  Fill([](int i) { return i * i % 97; });
  const ChannelBlock before = *block_;
  dialogs_.ExpectMessage("BackGrand Interval <= 0 !");
  dialogs_.ExpectMessage("BackGrand Interval <= 0 !");
  Estimate(0, 5, 4096);
  Estimate(-1, 5, 4096);
  EXPECT_EQ(*block_, before);
}

TEST_F(BackGraund, TimesOfZeroOrLessTellAndChangeNothing) {
  Fill([](int i) { return i * i % 97; });
  const ChannelBlock before = *block_;
  dialogs_.ExpectMessage("BackGrand Times <= 0 !");
  dialogs_.ExpectMessage("BackGrand Times <= 0 !");
  Estimate(20, 0, 4096);
  Estimate(20, -3, 4096);
  EXPECT_EQ(*block_, before);
}

TEST_F(BackGraund, IntervalOneComparesEachChannelWithItsNeighboursInAscendingOrder) {
  // By hand: 10 falls to (0+4)/2 = 2; 4 stays below (2+8)/2; 8 falls to (4+2)/2 = 3. The lines from
  // channel to channel then give at their left ends, less one slope: 0-2, 2-2, 4+1, 3+1.
  const std::int32_t counts[] = {0, 10, 4, 8, 2};
  for (int i = 0; i < 5; ++i) block_->Counts[i] = counts[i];
  Estimate(1, 1, 4);
  EXPECT_THAT(std::vector(block_->Counts.data(), block_->Counts.data() + 5),
              ElementsAre(-2, 0, 5, 4, 2));
}

TEST_F(BackGraund, EveryPassClipsFurther) {
  // Grid 0, 4, 16, 0, 0 of interval 10. The first pass leaves 0, 4, 2, 0, 0, the second 0, 1, 0, 0,
  // 0.
  const auto grid = [](int i) { return i == 20 ? 16 : i == 10 ? 4 : 0; };
  Fill(grid);
  Estimate(10, 1, 40);
  EXPECT_EQ(At(20), 2);
  Fill(grid);
  Estimate(10, 2, 40);
  EXPECT_EQ(At(20), 0);
}

TEST_F(BackGraund, MeansAreRoundedToTheEvenNeighbour) {
  // Grid 0, 9, 5 of interval 2: the mean is 2.5 and becomes 2, which the line 2, 5 shows as 2 - 1.5
  // = 0.5, that is 0, at channel 2.
  Fill([](int i) { return i == 2 ? 9 : i == 4 ? 5 : 0; });
  Estimate(2, 1, 4);
  EXPECT_EQ(At(2), 0);
  // 0, 9, 7: 3.5 becomes 4, and the line 4, 7 gives 2.5 at channel 2 and 4 at channel 3.
  Fill([](int i) { return i == 2 ? 9 : i == 4 ? 7 : 0; });
  Estimate(2, 1, 4);
  EXPECT_EQ(At(2), 2);
  EXPECT_EQ(At(3), 4);
}

TEST_F(BackGraund, OnlyGridChannelsAreLookedAt) {
  Fill([](int i) { return i % 20 == 0 ? 7 : 5000; });
  Estimate(20, 1, 100);
  for (int i = 0; i < 100; ++i) ASSERT_EQ(At(i), 7) << i;
}

TEST_F(BackGraund, HundredChannelsAreAllJoinedUpToTheStoredChannelBehindThem) {
  // Grid channels 20 to 80 are clipped between 0 and channel 100, which is read as it is stored.
  Fill([](int i) { return i == 100 ? 400 : 0; });
  Estimate(20, 1, 100);
  EXPECT_EQ(At(79), 0);
  EXPECT_EQ(At(81), 0);  // 400/20 = 20 counts a channel, one channel late
  EXPECT_EQ(At(82), 20);
  EXPECT_EQ(At(99), 360);
  EXPECT_EQ(At(100), 400);
}

TEST_F(BackGraund, BackgroundRunsOneSlopeBelowTheChordsAsIsMeant) {
  Fill([](int i) { return 3 * i; });
  Estimate(20, 3, 100);
  for (int i = 0; i < 100; ++i) ASSERT_EQ(At(i), 3 * i - 3) << i;
}

TEST_F(BackGraund, TailBehindTheLastWholeIntervalStaysAsMeasured) {
  Fill([](int i) { return i % 2 == 0 ? 10 : 1000; });
  Estimate(20, 1, 4096);
  for (int i = 0; i < 4080; ++i) ASSERT_EQ(At(i), 10) << i;
  for (int i = 4080; i < 4096; ++i) ASSERT_EQ(At(i), i % 2 == 0 ? 10 : 1000) << i;
}

TEST_F(BackGraund, TailOfAFullTableIsTwelveChannels) {
  Fill([](int i) { return i % 2 == 0 ? 10 : 1000; });
  Estimate(20, 1, 8192);
  EXPECT_EQ(At(8179), 10);
  for (int i = 8180; i < 8192; ++i) ASSERT_EQ(At(i), i % 2 == 0 ? 10 : 1000) << i;
}

TEST_F(BackGraund, IntervalThatDividesAFullTableIsARangeFailure) {
  for (const int interval : {1, 16, 4096}) {
    try {
      Estimate(interval, 1, 8192);
      ADD_FAILURE() << interval;
    } catch (const Fault& fault) {
      EXPECT_EQ(fault.Code(), FaultCode::Subscript);
    }
  }
}

TEST_F(BackGraund, FlatSpectrumStays) {
  Fill([](int) { return 1234; });
  Estimate(20, 20, 4096);
  for (int i = 0; i < 4096; ++i) ASSERT_EQ(At(i), 1234) << i;
}

TEST_F(BackGraund, RisingWithPositiveCurvatureLiesOnItsChords) {
  // Grid 0, 100, 400 of i^2 every 10 channels: nothing is clipped; slopes 10 and 30, one slope
  // below.
  Fill([](int i) { return i * i; });
  Estimate(10, 5, 20);
  for (int i = 0; i < 10; ++i) ASSERT_EQ(At(i), 10 * i - 10) << i;
  for (int i = 10; i < 20; ++i) ASSERT_EQ(At(i), 100 + 30 * (i - 10) - 30) << i;
}

TEST_F(BackGraund, RisingWithNegativeCurvatureIsClippedOnTheGridToTheChords) {
  // Grid 0, 100, 150 every 10 channels: 100 exceeds the mean 75.
  Fill([](int i) { return i == 20 ? 150 : i == 10 ? 100 : 0; });
  Estimate(10, 1, 20);
  EXPECT_EQ(At(2), 8);    // 7.5 counts a channel, one channel late
  EXPECT_EQ(At(11), 75);  // the slope stays 7.5
  EXPECT_EQ(At(13), 90);
}

TEST_F(BackGraund, FewerChannelsThanOneIntervalStay) {
  Fill([](int i) { return i; });
  const ChannelBlock before = *block_;
  Estimate(20, 5, 19);
  Estimate(20, 5, 0);
  EXPECT_EQ(*block_, before);
}

TEST_F(BackGraund, PeakIsRemovedFromAFlatBackground) {
  Fill([](int i) { return i > 480 && i < 520 ? 5000 : 100; });
  Estimate(20, 20, 1000);
  for (int i = 0; i < 1000; ++i) ASSERT_EQ(At(i), 100) << i;
}

}  // namespace
}  // namespace dorvane
