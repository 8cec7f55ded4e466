// What the mouse does on the graphs and their axes.
#include <QWheelEvent>

#include "WindowTest.h"

namespace dorvane {
namespace {

class GraphWindowTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    OpenCorundum();
    graph = Find<QWidget>("picGraph_0");
  }

  // A point of the graph over a channel.
  QPoint Over(double channel) {
    const double x = session->program.spect.XOfChannel(0, channel) * graph->width();
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
  void Wheel(QWidget* target, QPoint at, int notches,
             Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWheelEvent event(at, target->mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(target, &event);
  }

  QWidget* graph = nullptr;
};

TEST_F(GraphWindowTest, ClickMovesTheCursorToTheChannelUnderThePointer) {
  QTest::mouseClick(graph, Qt::LeftButton, {}, Over(700));
  EXPECT_NEAR(View().CursorCh, 700, Reach());
}

TEST_F(GraphWindowTest, ClickMakesTheWindowActive) {
  QTest::mouseClick(Find<QWidget>("picGraph_1"), Qt::LeftButton, {}, {50, 30});
  EXPECT_EQ(View().CurWin, 1);
  QTest::mouseClick(graph, Qt::LeftButton, {}, Over(700));
  EXPECT_EQ(View().CurWin, 0);
}

TEST_F(GraphWindowTest, DragMarksTheAreaWhileTheAreaCursorIsOn) {
  Trigger("mnuAreaCursor");
  DragFromTo(600, 900);
  EXPECT_NEAR(View().AreaStart, 600, Reach());
  EXPECT_NEAR(View().AreaEnd, 900, Reach());
}

TEST_F(GraphWindowTest, DragMarksNothingWhileTheAreaCursorIsOff) {
  DragFromTo(600, 900);
  EXPECT_EQ(View().AreaStart, kNoEnd);
  EXPECT_NEAR(View().CursorCh, 900, Reach());
}

TEST_F(GraphWindowTest, EdgeOfTheAreaFollowsTheDrag) {
  Trigger("mnuAreaCursor");
  DragFromTo(600, 900);
  const int start = View().AreaStart;
  DragFromTo(View().AreaEnd, 1200);
  EXPECT_EQ(View().AreaStart, start);
  EXPECT_NEAR(View().AreaEnd, 1200, Reach());
}

TEST_F(GraphWindowTest, PointerShowsWhatAPressWouldTake) {
  Trigger("mnuAreaCursor");
  DragFromTo(600, 900);
  QTest::mouseMove(graph, Over(750));
  EXPECT_EQ(graph->cursor().shape(), Qt::CrossCursor);
  QTest::mouseMove(graph, Over(View().AreaEnd));
  EXPECT_EQ(graph->cursor().shape(), Qt::SizeHorCursor);
}

TEST_F(GraphWindowTest, RangeMarkOfAnExpansionFollowsTheDrag) {
  Trigger("mnuExpandOn");
  Type("imnSpanCh", "400");
  Type("inumCursorCh", "0");
  ASSERT_EQ(View().StartCh, 0);
  DragFromTo(200, 1000);
  EXPECT_NEAR(View().StartCh, 800, 4 * Reach());
  EXPECT_EQ(View().SpanCh, 400);
}

TEST_F(GraphWindowTest, WheelZoomsAboutThePointer) {
  const QPoint at = Over(700);
  Wheel(graph, at, 3);
  EXPECT_LT(View().SpanCh, 2048);
  EXPECT_NEAR(Over(700).x(), at.x(), 2);
  Wheel(graph, at, -3);
  EXPECT_NEAR(View().SpanCh, 2048, 4);
}

TEST_F(GraphWindowTest, ShiftAndWheelScroll) {
  Wheel(graph, Over(1000), 5);
  const double start = View().StartCh;
  const double span = View().SpanCh;
  Wheel(graph, Over(1000), 1, Qt::ShiftModifier);
  EXPECT_LT(View().StartCh, start);
  EXPECT_EQ(View().SpanCh, span);
}

TEST_F(GraphWindowTest, DoubleClickOnTheUnitAxisShowsTheWholeSpectrum) {
  Wheel(graph, Over(1000), 5);
  QTest::mouseDClick(Find<QWidget>("picSubScale_0"), Qt::LeftButton);
  EXPECT_EQ(View().StartCh, 0);
  EXPECT_EQ(View().SpanCh, 2048);
}

TEST_F(GraphWindowTest, DoubleClickOnTheCountAxisFitsTheHeight) {
  const std::int32_t height = View().HeightY;
  Trigger("mnuTaller");
  ASSERT_NE(View().HeightY, height);
  QTest::mouseDClick(Find<QWidget>("picScaleY_0"), Qt::LeftButton);
  EXPECT_EQ(View().HeightY, height);
}

TEST_F(GraphWindowTest, WheelOnTheCountAxisChangesTheHeight) {
  const std::int32_t height = View().HeightY;
  Wheel(Find<QWidget>("picScaleY_0"), {10, 20}, 1);
  EXPECT_LT(View().HeightY, height);
}

TEST_F(GraphWindowTest, DragPastTheEdgeScrolls) {
  Trigger("mnuAreaCursor");
  Wheel(graph, Over(1000), 5);
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

TEST_F(GraphWindowTest, CursorIsPaintedOverTheSamePicture) {
  const QImage before = graph->grab().toImage();
  QTest::mouseClick(graph, Qt::LeftButton, {}, Over(300));
  const QImage moved = graph->grab().toImage();
  EXPECT_NE(before, moved);
  QTest::keyClick(graph, Qt::Key_Left, Qt::ShiftModifier);
  QTest::keyClick(graph, Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(graph->grab().toImage(), moved);
}

TEST_F(GraphWindowTest, AMovedCursorDrawsNoCurveAnew) {
  int drawn = 0;
  session->main.graphs.picGraph[0].RedrawWanted.Connect([&drawn] { ++drawn; });
  QTest::keyClick(graph, Qt::Key_Right);
  QTest::mouseClick(graph, Qt::LeftButton, {}, Over(300));
  EXPECT_EQ(drawn, 0);
}

}  // namespace
}  // namespace dorvane
