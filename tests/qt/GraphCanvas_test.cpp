#include <QWheelEvent>

#include "WindowTest.h"

namespace dorvane {
namespace {

class GraphCanvasTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    OpenCorundum();
    graph = Find<QWidget>("picGraph_0");
  }

  // A point of the graph over a channel.
  QPoint Over(double channel) {
    const double x = window.TheSession().program.spect.XOfChannel(0, channel) * graph->width();
    return {static_cast<int>(x), graph->height() / 2};
  }
  // Channels that one pixel covers, rounded up: how near a click can come.
  int Reach() { return static_cast<int>(View().SpanCh / graph->width()) + 1; }
  void DragFromTo(double from, double to) {
    QTest::mousePress(graph, Qt::LeftButton, {}, Over(from));
    QTest::mouseMove(graph, Over((from + to) / 2));
    QTest::mouseMove(graph, Over(to));
    QTest::mouseRelease(graph, Qt::LeftButton, {}, Over(to));
  }
  void Wheel(QPoint at, int notches, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWheelEvent event(at, graph->mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(graph, &event);
  }

  QWidget* graph = nullptr;
};

TEST_F(GraphCanvasTest, ClickMovesTheCursorToTheChannelUnderThePointer) {
  QTest::mouseClick(graph, Qt::LeftButton, {}, Over(700));
  EXPECT_NEAR(View().CursorCh, 700, Reach());
}

TEST_F(GraphCanvasTest, ClickMakesTheWindowActive) {
  Trigger("mnuLowerWindow");
  QTest::mouseClick(Find<QWidget>("picGraph_1"), Qt::LeftButton, {}, {50, 30});
  EXPECT_EQ(View().CurWin, 1);
  QTest::mouseClick(graph, Qt::LeftButton, {}, Over(700));
  EXPECT_EQ(View().CurWin, 0);
}

TEST_F(GraphCanvasTest, DragMarksTheAreaWhileTheAreaCursorIsOn) {
  Trigger("chkArea");
  DragFromTo(600, 900);
  EXPECT_NEAR(View().AreaStart, 600, Reach());
  EXPECT_NEAR(View().AreaEnd, 900, Reach());
}

TEST_F(GraphCanvasTest, DragMarksNothingWhileTheAreaCursorIsOff) {
  DragFromTo(600, 900);
  EXPECT_EQ(View().AreaStart, kNoEnd);
  EXPECT_NEAR(View().CursorCh, 900, Reach());
}

TEST_F(GraphCanvasTest, EdgeOfTheAreaFollowsTheDrag) {
  Trigger("chkArea");
  DragFromTo(600, 900);
  const int start = View().AreaStart;
  DragFromTo(View().AreaEnd, 1200);
  EXPECT_EQ(View().AreaStart, start);
  EXPECT_NEAR(View().AreaEnd, 1200, Reach());
}

TEST_F(GraphCanvasTest, ClickKeepsTheArea) {
  Trigger("chkArea");
  DragFromTo(600, 900);
  QTest::mouseClick(graph, Qt::LeftButton, {}, Over(1500));
  EXPECT_NEAR(View().AreaEnd, 900, Reach());
  EXPECT_NEAR(View().CursorCh, 1500, Reach());
}

TEST_F(GraphCanvasTest, WheelZoomsAboutThePointer) {
  const QPoint at = Over(700);
  Wheel(at, 3);
  EXPECT_LT(View().SpanCh, 2048);
  EXPECT_NEAR(Over(700).x(), at.x(), 2);
  Wheel(at, -3);
  EXPECT_NEAR(View().SpanCh, 2048, 4);
}

TEST_F(GraphCanvasTest, ShiftAndWheelScroll) {
  Wheel(Over(1000), 5);
  const double start = View().StartCh;
  const double span = View().SpanCh;
  Wheel(Over(1000), 1, Qt::ShiftModifier);
  EXPECT_LT(View().StartCh, start);
  EXPECT_EQ(View().SpanCh, span);
}

TEST_F(GraphCanvasTest, DoubleClickOnTheUnitAxisShowsTheWholeSpectrum) {
  Wheel(Over(1000), 5);
  QTest::mouseDClick(Find<QWidget>("picSubScale_0"), Qt::LeftButton);
  EXPECT_EQ(View().StartCh, 0);
  EXPECT_EQ(View().SpanCh, 2048);
}

TEST_F(GraphCanvasTest, DoubleClickOnTheCountAxisFitsTheHeight) {
  const std::int32_t height = View().HeightY;
  Trigger("mnuTaller");
  ASSERT_EQ(View().AutoScale, kFalse);
  QTest::mouseDClick(Find<QWidget>("picScaleY_0"), Qt::LeftButton);
  EXPECT_EQ(View().AutoScale, kTrue);
  EXPECT_EQ(View().HeightY, height);
}

TEST_F(GraphCanvasTest, DragPastTheEdgeScrolls) {
  Trigger("chkArea");
  Wheel(Over(1000), 5);
  const double start = View().StartCh;
  QTest::mousePress(graph, Qt::LeftButton, {}, {graph->width() / 2, 20});
  QTest::mouseMove(graph, {graph->width() + 30, 20});
  QTest::qWait(200);
  EXPECT_GT(View().StartCh, start);
  QTest::mouseRelease(graph, Qt::LeftButton, {}, {graph->width() + 30, 20});
  const double stopped = View().StartCh;
  QTest::qWait(120);
  EXPECT_EQ(View().StartCh, stopped);
}

TEST_F(GraphCanvasTest, CursorIsPaintedOverTheSamePicture) {
  const QImage before = graph->grab().toImage();
  QTest::mouseClick(graph, Qt::LeftButton, {}, Over(300));
  const QImage moved = graph->grab().toImage();
  EXPECT_NE(before, moved);
  QTest::keyClick(graph, Qt::Key_Left, Qt::ShiftModifier);
  QTest::keyClick(graph, Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(graph->grab().toImage(), moved);
}

}  // namespace
}  // namespace dorvane
