#include "program/WholeRange.h"

#include "program/MoveGraph.h"
#include "program/ProgramFixture.h"
#include "program/View.h"

namespace dorvane {
namespace {

class WholeRangeTest : public ProgramTest {};

TEST_F(WholeRangeTest, AShortSpectrumFillsTheWindow) {
  Show(std::vector<std::int32_t>(2048, 1));
  Show(std::vector<std::int32_t>(1024, 1));
  ShowOpenSpectra(program);
  EXPECT_EQ(view.StartCh, 0);
  EXPECT_EQ(view.SpanCh, 2048);
  EXPECT_TRUE(ShowsWholeRange(program));
}

TEST_F(WholeRangeTest, WithoutASpectrumAllChannelsAreShown) {
  EXPECT_EQ(LongestSpectrum(workspace), 4096);
  EXPECT_TRUE(ShowsWholeRange(program));
}

TEST_F(WholeRangeTest, ANarrowedRangeIsNotTheWhole) {
  Show(std::vector<std::int32_t>(2048, 1));
  SetSpanCh(program, 500);
  EXPECT_FALSE(ShowsWholeRange(program));
}

class MoveGraphTest : public ProgramTest {};

TEST_F(MoveGraphTest, AMovedGraphIsTheCurrentOneOfItsNewWindow) {
  Show({1}, "a.npd");
  Show({2}, "b.npd");
  MoveGraph(program, 1, 1);
  EXPECT_EQ(view.CurWin, 1);
  EXPECT_EQ(view.GraphNo, 1);
  EXPECT_EQ(view.SelectedRow[0], 0);
  EXPECT_EQ(workspace.Slots[1].WinNo, 1);
}

TEST_F(MoveGraphTest, AGraphThatIsThereStays) {
  Show({1}, "a.npd");
  listener.notices.clear();
  MoveGraph(program, 0, 0);
  EXPECT_TRUE(listener.notices.empty());
}

}  // namespace
}  // namespace dorvane
