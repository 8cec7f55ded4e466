#include "program/GraphMouse.h"

#include "program/Cursor.h"
#include "program/ProgramFixture.h"
#include "program/View.h"
#include "program/WindowStyle.h"

namespace dorvane {
namespace {

constexpr double kReach = 5;

class GraphMouseTest : public ProgramTest {};

TEST_F(GraphMouseTest, APressMovesTheCursorAndActivatesTheWindow) {
  Show({1});
  BeginDrag(program, 1, 200.4, kReach);
  EXPECT_EQ(view.CursorCh, 200);
  EXPECT_EQ(view.CurWin, 1);
}

TEST_F(GraphMouseTest, WithTheAreaCursorOnADragMarksAnArea) {
  Show({1});
  view.AreaOn = kTrue;
  const GraphDrag drag = BeginDrag(program, 0, 300, kReach);
  DragTo(program, drag, 250);
  EXPECT_EQ(view.AreaStart, 250);
  EXPECT_EQ(view.AreaEnd, 300);
}

TEST_F(GraphMouseTest, AClickAloneKeepsTheArea) {
  Show({1});
  view.AreaOn = kTrue;
  SetArea(program, 100, 200);
  BeginDrag(program, 0, 300, kReach);
  EXPECT_EQ(view.AreaStart, 100);
  EXPECT_EQ(view.AreaEnd, 200);
}

TEST_F(GraphMouseTest, AnEdgeWithinReachFollowsThePointerTheOtherStays) {
  Show({1});
  view.AreaOn = kTrue;
  SetArea(program, 100, 200);
  EXPECT_EQ(TargetAt(program, 0, 104, kReach), MouseTarget::AreaEdge);
  EXPECT_EQ(TargetAt(program, 0, 150, kReach), MouseTarget::Cursor);
  DragTo(program, BeginDrag(program, 0, 104, kReach), 120);
  EXPECT_EQ(view.AreaStart, 120);
  EXPECT_EQ(view.AreaEnd, 200);
  DragTo(program, BeginDrag(program, 0, 198, kReach), 400);
  EXPECT_EQ(view.AreaStart, 120);
  EXPECT_EQ(view.AreaEnd, 400);
}

TEST_F(GraphMouseTest, AnEdgeDraggedPastTheOtherChangesSides) {
  Show({1});
  view.AreaOn = kTrue;
  SetArea(program, 100, 200);
  DragTo(program, BeginDrag(program, 0, 100, kReach), 260);
  EXPECT_EQ(view.AreaStart, 200);
  EXPECT_EQ(view.AreaEnd, 260);
}

TEST_F(GraphMouseTest, ADragOutOfTheWindowStopsAtTheLastChannel) {
  Show({1});
  view.AreaOn = kTrue;
  const GraphDrag drag = BeginDrag(program, 0, 300, kReach);
  DragTo(program, drag, 90000);
  EXPECT_EQ(view.AreaEnd, 4095);
  DragTo(program, drag, -5);
  EXPECT_EQ(view.AreaStart, 0);
}

TEST_F(GraphMouseTest, TheRangeMarkOfAnExpansionMovesItsRange) {
  Show({1});
  ckbExpand_Click(program, true);
  SetSpanCh(program, 500);
  SetStartCh(program, 1000);
  EXPECT_EQ(TargetAt(program, 0, 1200, kReach), MouseTarget::RangeMark);
  EXPECT_EQ(TargetAt(program, 1, 1200, kReach), MouseTarget::Cursor);
  const GraphDrag drag = BeginDrag(program, 0, 1200, kReach);
  DragTo(program, drag, 1700);
  EXPECT_EQ(view.StartCh, 1500);
  EXPECT_EQ(view.SpanCh, 500);
}

TEST_F(GraphMouseTest, AnAreaHasItsEdgesInTheActiveWindowAlone) {
  Show({1});
  view.AreaOn = kTrue;
  SetArea(program, 100, 200);
  EXPECT_EQ(TargetAt(program, 1, 100, kReach), MouseTarget::Cursor);
}

TEST_F(GraphMouseTest, WithTheAreaCursorOnADragOverTheRangeMarkMarksAnArea) {
  Show({1});
  ckbExpand_Click(program, true);
  SetSpanCh(program, 500);
  SetStartCh(program, 1000);
  view.AreaOn = kTrue;
  EXPECT_EQ(TargetAt(program, 0, 1200, kReach), MouseTarget::Cursor);
  DragTo(program, BeginDrag(program, 0, 1200, kReach), 1700);
  EXPECT_EQ(view.StartCh, 1000);
  EXPECT_EQ(view.AreaStart, 1200);
  EXPECT_EQ(view.AreaEnd, 1700);
}

TEST_F(GraphMouseTest, AHeldDragScrollsByTenChannelsInsideTheRange) {
  Show({1});
  SetSpanCh(program, 1000);
  ScrollDrag(program, 1);
  EXPECT_EQ(view.StartCh, 10);
  ScrollDrag(program, -1);
  ScrollDrag(program, -1);
  EXPECT_EQ(view.StartCh, 0);
}

}  // namespace
}  // namespace dorvane
