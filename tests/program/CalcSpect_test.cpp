#include "program/CalcSpect.h"

#include <gmock/gmock.h>

#include "processing/GraphArithmetic.h"
#include "program/Commands.h"
#include "program/DerivedGraphs.h"
#include "program/ProgramFixture.h"
#include "program/View.h"

namespace dorvane {
namespace {

using testing::Contains;
using testing::ElementsAre;

class CalcSpectTest : public ProgramTest {
 protected:
  // Two graphs, G1 and G2, of which the second is the current one.
  CalcSpectTest() {
    Show({10, 20, 30}, "a.npd");
    Show({1, 2, 3}, "b.npd");
    listener.notices.clear();
  }
  void Calc(const ArithmeticTerm& first, int op = kNoSecondTerm,
            const ArithmeticTerm& second = {}) {
    CalcSpect(program, {first, op, second}, work);
  }
  const Curve& Result(int win_no = 0) { return program.spect.CurveOf(win_no, 0); }

  ArithmeticWork work;
};

TEST_F(CalcSpectTest, OneTermGoesIntoTheFirstSpectrum) {
  Calc({1, kMultiply, 5});
  EXPECT_THAT(CountsOf(0), ElementsAre(5, 10, 15));
  EXPECT_THAT(CountsOf(1), ElementsAre(1, 2, 3));
}

// (10 + 2) - (1 * 3) and so on, by hand.
TEST_F(CalcSpectTest, TwoTermsAreJoinedByTheOperatorBetweenThem) {
  Calc({0, kAdd, 2}, kSubtract, {1, kMultiply, 3});
  EXPECT_THAT(CountsOf(0), ElementsAre(9, 16, 23));
}

// Halves of 1, 2, 3 are 0, 1, 2: their sum with themselves is not 1, 2, 3.
TEST_F(CalcSpectTest, EachTermIsRoundedByItself) {
  Calc({1, kDivide, 2}, kAdd, {1, kDivide, 2});
  EXPECT_THAT(CountsOf(0), ElementsAre(0, 2, 4));
}

TEST_F(CalcSpectTest, TheFirstGraphMayBeBothOperandsAndTheResult) {
  Calc({0, kAdd, 0}, kAdd, {0, kAdd, 0});
  EXPECT_THAT(CountsOf(0), ElementsAre(20, 40, 60));
}

TEST_F(CalcSpectTest, WithoutASecondTermItsValuesHaveNoEffect) {
  Calc({1, kAdd, 0}, kNoSecondTerm, {99, kMultiply, 1e300});
  EXPECT_THAT(CountsOf(0), ElementsAre(1, 2, 3));
}

TEST_F(CalcSpectTest, ANonexistentSecondTermLeavesItsWorkAlone) {
  Calc({1, kAdd, 0}, kNoSecondTerm, {0, kAdd, 0});
  EXPECT_EQ(work.first.Count, 0);
  EXPECT_EQ(work.second.Count, 0);
}

// By hand: channel 2 and 3 of the second term are what the longer graph left there.
TEST_F(CalcSpectTest, AShorterSecondTermTakesWhatAnEarlierCalculationLeftAsMeant) {
  const auto longer = Show({5, 5, 5, 5}, "long.npd");
  const auto shorter = Show({1, 1}, "short.npd");
  Calc({longer, kAdd, 0}, kAdd, {shorter, kAdd, 0});
  EXPECT_THAT(CountsOf(0), ElementsAre(6, 6, 5, 5));
  Calc({longer, kAdd, 0}, kAdd, {longer, kAdd, 2});
  Calc({longer, kAdd, 0}, kAdd, {shorter, kAdd, 0});
  EXPECT_THAT(CountsOf(0), ElementsAre(6, 6, 12, 12));
}

TEST_F(CalcSpectTest, TheResultHasTheCountOfTheFirstTerm) {
  const auto longer = Show({5, 5, 5, 5}, "long.npd");
  Calc({longer, kAdd, 1});
  EXPECT_THAT(CountsOf(0), ElementsAre(6, 6, 6, 6));
  Calc({1, kAdd, 0}, kAdd, {longer, kAdd, 0});
  EXPECT_THAT(CountsOf(0), ElementsAre(6, 7, 8));
}

TEST_F(CalcSpectTest, PropertiesAndPeaksStay) {
  workspace.Spectra[0].Prop.TwoTheta = 6;
  workspace.Spectra[1].Prop.TwoTheta = 7;
  workspace.Peaks[0].Count = 1;
  workspace.Peaks[0].Peaks[0].Center = 1.5;
  const SpectrumRec record = workspace.Spectra[0];
  const PeakTable peaks = workspace.Peaks[0];
  Calc({1, kAdd, 0}, kAdd, {1, kAdd, 0});
  EXPECT_EQ(workspace.Spectra[0], record);
  EXPECT_EQ(workspace.Peaks[0], peaks);
  EXPECT_EQ(workspace.Peaks[1].Count, 0);
}

TEST_F(CalcSpectTest, TheRowOfTheFirstSpectrumIsUnsaved) {
  Calc({1, kAdd, 1});
  EXPECT_EQ(Row(0).State, kRowUnsaved);
  EXPECT_EQ(Row(1).State, kRowSaved);
}

// A graph that is inserted pushes the first spectrum down the list.
TEST_F(CalcSpectTest, TheResultIsTheFirstSpectrumWhereverItsRowIs) {
  SmoothGraph(program);
  ASSERT_EQ(Row(0).DataNo, 2);
  ASSERT_EQ(Row(1).DataNo, 0);
  Calc({2, kMultiply, 2});
  EXPECT_THAT(CountsOf(0), ElementsAre(2, 4, 6));
  EXPECT_EQ(Row(0).State, kRowSaved);
  EXPECT_EQ(Row(1).State, kRowUnsaved);
}

TEST_F(CalcSpectTest, TheCurveIsDrawnInTheFirstColourOfTheTable) {
  ChgStrColor_chkGrp(list, 0, 0, 0x123456);
  listener.notices.clear();
  Calc({1, kAdd, 0});
  EXPECT_EQ(Result().Counts[2], 3);
  EXPECT_EQ(Result().Color, workspace.ColorTbl[0]);
  EXPECT_EQ(Row(0).Color, workspace.ColorTbl[0]);
  EXPECT_EQ(Row(0).Title, "a.npd");
  for (const char* notice : {"shown 0 0", "colour 0 0", "checks"}) {
    EXPECT_THAT(listener.notices, Contains(notice));
  }
  EXPECT_EQ(listener.notices.back(), "cursor");
}

TEST_F(CalcSpectTest, AHiddenGraphIsShownAgain) {
  ChgValue_chkGrp(list, 0, 0, false);
  Calc({1, kAdd, 0});
  EXPECT_EQ(Row(0).Disp, kTrue);
  EXPECT_EQ(Result().Shown, kTrue);
}

TEST_F(CalcSpectTest, TheResultIsDrawnInTheWindowOfItsGraph) {
  ChgValue_chkGrp(list, 1, 0, true);
  Calc({1, kAdd, 0});
  EXPECT_EQ(Result(1).Counts[2], 3);
  EXPECT_EQ(Result(0).Valid, kFalse);
}

TEST_F(CalcSpectTest, TheCurrentGraphStays) {
  Calc({1, kAdd, 0});
  EXPECT_EQ(view.DataNo, 1);
  EXPECT_EQ(view.GraphNo, 1);
}

TEST_F(CalcSpectTest, TheAutomaticScaleFollowsTheResult) {
  Change_cboGrphSel(list, 0, 0);
  SetAutoScale(program, true);
  const std::int32_t before = view.HeightY;
  Calc({0, kMultiply, 100});
  EXPECT_GT(view.HeightY, before);
  EXPECT_GE(view.HeightY, 3000);
}

TEST_F(CalcSpectTest, AHeightOfTheUsersOwnStays) {
  Change_cboGrphSel(list, 0, 0);
  SetAutoScale(program, false);
  const std::int32_t before = view.HeightY;
  Calc({0, kMultiply, 100});
  EXPECT_EQ(view.HeightY, before);
}

TEST_F(CalcSpectTest, WithoutARowTheCountsAreStoredAloneAndNothingIsDrawn) {
  RemoveGraph(list, 0);
  Calc({1, kAdd, 1});
  EXPECT_THAT(CountsOf(0), ElementsAre(2, 3, 4));
  EXPECT_EQ(Result().Valid, kFalse);
  EXPECT_EQ(workspace.GrpCount, 1);
  EXPECT_EQ(workspace.DataUse[0], 0);
}

// The last channel overflows: those in front of it have been worked out by then.
TEST_F(CalcSpectTest, AnOverflowStoresNothing) {
  Calc({1, kAdd, 0}, kAdd, {1, kAdd, 0});
  workspace.Channels[1].Counts[2] = 2'000'000'000;
  workspace.Slots[0].State = kRowSaved;
  const ChannelBlock first = workspace.Channels[0];
  const ArithmeticWork before = work;
  listener.notices.clear();
  for (const GraphExpression& expression :
       {GraphExpression{{1, kMultiply, 2}, kNoSecondTerm, {}},
        GraphExpression{{1, kMultiply, 2}, kAdd, {1, kAdd, 0}},
        GraphExpression{{1, kAdd, 1}, kAdd, {1, kMultiply, 2}},
        GraphExpression{{1, kAdd, 0}, kMultiply, {1, kAdd, 0}}}) {
    dialogs.ExpectMessage("Overflow");
    EXPECT_FALSE(RunGuarded(program, [&](Program& p) { CalcSpect(p, expression, work); }));
    EXPECT_EQ(workspace.Channels[0], first);
    EXPECT_EQ(work.first, before.first);
    EXPECT_EQ(work.second, before.second);
    EXPECT_EQ(Row(0).State, kRowSaved);
  }
  EXPECT_THAT(listener.notices, ElementsAre());
}

TEST_F(CalcSpectTest, ANumberThatNoSpectrumHasIsRefused) {
  EXPECT_THROW(Calc({14, kAdd, 0}), Fault);
  EXPECT_THROW(Calc({-1, kAdd, 0}), Fault);
  EXPECT_THAT(CountsOf(0), ElementsAre(10, 20, 30));
}

}  // namespace
}  // namespace dorvane
