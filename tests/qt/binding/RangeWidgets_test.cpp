#include "qt/binding/RangeWidgets.h"

#include <QScrollBar>
#include <QSlider>
#include <QToolButton>
#include <QWheelEvent>

#include "BindingTest.h"

namespace dorvane {
namespace {

using RangeWidgets = BindingTest;

TEST_F(RangeWidgets, SliderFollowsRangeStepsAndValue) {
  const auto changes = Count(form.sldWidth.Change);
  form.sldWidth.SetRange(10, 500);
  form.sldWidth.SetSteps(5, 50);
  form.sldWidth.SetValue(200);
  auto* slider = Find<QSlider>("sldWidth");
  EXPECT_EQ(slider->minimum(), 10);
  EXPECT_EQ(slider->maximum(), 500);
  EXPECT_EQ(slider->pageStep(), 50);
  EXPECT_EQ(slider->value(), 200);
  EXPECT_EQ(*changes, 2);  // 0 to 10 by the range, then 200
}

TEST_F(RangeWidgets, SliderIsMovedByTheUser) {
  const auto changes = Count(form.sldWidth.Change);
  QTest::keyClick(Of(form.sldWidth), Qt::Key_Right);
  QTest::keyClick(Of(form.sldWidth), Qt::Key_PageUp);
  EXPECT_EQ(form.sldWidth.Value(), 11);
  EXPECT_EQ(*changes, 2);
}

TEST_F(RangeWidgets, ScrollBarFollowsAndIsMoved) {
  form.hsbStartX.SetValue(40);
  EXPECT_EQ(Find<QScrollBar>("hsbStartX")->value(), 40);
  QTest::keyClick(Of(form.hsbStartX), Qt::Key_Left);
  EXPECT_EQ(form.hsbStartX.Value(), 39);
}

TEST_F(RangeWidgets, ScrollBarOfAPageEndsWhereItsLastPageBegins) {
  form.hsbStartX.SetRange(0, 1000);
  form.hsbStartX.SetSteps(1, 300);
  EXPECT_EQ(Find<QScrollBar>("hsbStartX")->maximum(), 1000);
  form.hsbStartX.SetShowsPage(true);
  EXPECT_EQ(Find<QScrollBar>("hsbStartX")->maximum(), 700);
  form.hsbStartX.SetSteps(1, 2000);
  EXPECT_EQ(Find<QScrollBar>("hsbStartX")->maximum(), 0);
}

TEST_F(RangeWidgets, DoubleClickOnTheGripOfADividerIsAnEvent) {
  const auto clicks = Count(form.fraWinHeight.DblClick);
  QTest::mouseDClick(Find<QSplitter>("fraWinHeight")->handle(1), Qt::LeftButton);
  EXPECT_EQ(*clicks, 1);
}

TEST_F(RangeWidgets, HandlerMayMoveTheValueOn) {
  form.sldWidth.Change.Connect([this] { form.sldWidth.SetValue(form.sldWidth.Value() / 5 * 5); });
  form.sldWidth.SetValue(50);
  QTest::keyClick(Of(form.sldWidth), Qt::Key_Right);
  EXPECT_EQ(form.sldWidth.Value(), 50);
  EXPECT_EQ(Find<QSlider>("sldWidth")->value(), 50);
}

TEST_F(RangeWidgets, ArrowsArePressedByMouseKeysAndWheel) {
  const auto ups = Count(form.spnCursor.UpClick);
  const auto downs = Count(form.spnCursor.DownClick);
  QTest::mouseClick(Find<QToolButton>("spnCursor_Up"), Qt::LeftButton);
  QTest::keyClick(Of(form.spnCursor), Qt::Key_Up);
  QTest::mouseClick(Find<QToolButton>("spnCursor_Down"), Qt::LeftButton);
  QTest::keyClick(Of(form.spnCursor), Qt::Key_Down);
  EXPECT_EQ(*ups, 2);
  EXPECT_EQ(*downs, 2);
  EXPECT_EQ(form.spnCursor.Value(), 0);
}

TEST_F(RangeWidgets, ArrowsAreTurnedByWholeStepsOfTheWheel) {
  const auto ups = Count(form.spnCursor.UpClick);
  const QPointF at(5, 5);
  for (int i = 0; i < 8; ++i) {
    QWheelEvent turn(at, Of(form.spnCursor)->mapToGlobal(at), {}, {0, 30}, {}, {},
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(Of(form.spnCursor), &turn);
  }
  EXPECT_EQ(*ups, 2);
}

TEST_F(RangeWidgets, DividerFollowsItsShareAtEverySize) {
  auto* divider = Find<QSplitter>("fraWinHeight");
  form.fraWinHeight.SetShare(0.7);
  const auto share = [divider] {
    const QList<int> parts = divider->sizes();
    return static_cast<double>(parts[0]) / (parts[0] + parts[1]);
  };
  EXPECT_NEAR(share(), 0.7, 0.01);
  Window().resize(Window().width(), Window().height() + 300);
  QTest::qWait(1);
  EXPECT_NEAR(share(), 0.7, 0.01);
}

TEST_F(RangeWidgets, DividerIsMovedAndPressedByKeys) {
  auto* handle = Find<QSplitter>("fraWinHeight")->handle(1);
  const auto doubles = Count(form.fraWinHeight.DblClick);
  handle->setFocus();
  ASSERT_TRUE(handle->hasFocus());
  QTest::keyClick(handle, Qt::Key_Up);
  const double upper = form.fraWinHeight.Share();
  EXPECT_LT(upper, 0.5);
  QTest::keyClick(handle, Qt::Key_Down);
  EXPECT_GT(form.fraWinHeight.Share(), upper);
  QTest::keyClick(handle, Qt::Key_Space);
  EXPECT_EQ(*doubles, 1);
}

TEST_F(RangeWidgets, DividerIsDraggedByTheUser) {
  auto* handle = Find<QSplitter>("fraWinHeight")->handle(1);
  const QPoint centre = handle->rect().center();
  const auto moves = Count(form.fraWinHeight.Moved);
  QTest::mousePress(handle, Qt::LeftButton, {}, centre);
  QTest::mouseMove(handle, centre - QPoint(0, 20));
  QTest::mouseRelease(handle, Qt::LeftButton, {}, centre);
  EXPECT_LT(form.fraWinHeight.Share(), 0.49);
  EXPECT_EQ(*moves, 1);
}

}  // namespace
}  // namespace dorvane
