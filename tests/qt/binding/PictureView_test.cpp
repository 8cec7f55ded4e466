#include "qt/binding/PictureView.h"

#include <QPainter>
#include <QWheelEvent>

#include "BindingTest.h"

namespace dorvane {
namespace {

class PictureViewTest : public BindingTest {
 protected:
  void SetUp() override {
    BindingTest::SetUp();
    view = Window().As<PictureView>(form.picGraph);
    view->setFixedSize(200, 100);
    QTest::qWait(1);
  }
  void Turn(int angle) { Turn(QPoint(0, angle)); }
  void Turn(QPoint angle) {
    QWheelEvent event({50, 25}, view->mapToGlobal(QPointF(50, 25)), {}, angle, {}, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(view, &event);
  }
  PictureView* view = nullptr;
};

TEST_F(PictureViewTest, PlacesAreFractions) {
  MouseAt at;
  form.picGraph.MouseDown.Connect([&at](const MouseAt& each) { at = each; });
  QTest::mousePress(view, Qt::RightButton, Qt::ShiftModifier, {50, 75});
  EXPECT_EQ(at.x, 0.25);
  EXPECT_EQ(at.y, 0.75);
  EXPECT_EQ(at.button, MouseButton::Right);
  EXPECT_TRUE(at.shift);
}

TEST_F(PictureViewTest, DragLeavesThePicture) {
  std::vector<MouseAt> moves;
  form.picGraph.MouseMove.Connect([&moves](const MouseAt& each) { moves.push_back(each); });
  QMouseEvent drag(QEvent::MouseMove, {300, 50}, view->mapToGlobal(QPointF(300, 50)), Qt::NoButton,
                   Qt::LeftButton, {});
  QApplication::sendEvent(view, &drag);
  ASSERT_EQ(moves.size(), 1U);
  EXPECT_EQ(moves[0].x, 1.5);
  EXPECT_EQ(moves[0].button, MouseButton::Left);
}

TEST_F(PictureViewTest, ReleaseAndDoubleClickAreEvents) {
  const auto downs = Count(form.picGraph.MouseDown);
  const auto ups = Count(form.picGraph.MouseUp);
  const auto doubles = Count(form.picGraph.DblClick);
  QTest::mouseClick(view, Qt::LeftButton);
  QTest::mouseDClick(view, Qt::LeftButton);
  QTest::mouseRelease(view, Qt::LeftButton);
  EXPECT_EQ(*downs, 1);
  EXPECT_EQ(*doubles, 1);
  EXPECT_EQ(*ups, 2);
}

TEST_F(PictureViewTest, WheelCountsWholeStepsAwayFromTheUser) {
  std::vector<int> steps;
  form.picGraph.Wheel.Connect([&steps](const MouseAt&, int each) { steps.push_back(each); });
  Turn(240);
  Turn(-60);
  Turn(-60);
  EXPECT_EQ(steps, (std::vector<int>{2, -1}));
}

TEST_F(PictureViewTest, TurnOfATouchpadAddsUpToSteps) {
  std::vector<int> steps;
  form.picGraph.Wheel.Connect([&steps](const MouseAt&, int each) { steps.push_back(each); });
  for (int i = 0; i < 20; ++i) Turn(12);
  EXPECT_EQ(steps, (std::vector<int>{1, 1}));
}

TEST_F(PictureViewTest, RestOfATurnIsGoneWhenTheDirectionChanges) {
  const auto turns = Count(form.picGraph.Wheel);
  Turn(110);
  Turn(-20);
  Turn(20);
  EXPECT_EQ(*turns, 0);
}

TEST_F(PictureViewTest, TurnToTheSideIsATurnWithShift) {
  std::vector<bool> shifts;
  form.picGraph.Wheel.Connect([&shifts](const MouseAt& at, int) { shifts.push_back(at.shift); });
  Turn({-120, 20});
  Turn({20, -120});
  EXPECT_EQ(shifts, (std::vector<bool>{true, false}));
}

TEST_F(PictureViewTest, PictureThatIsOffTakesNothing) {
  const auto downs = Count(form.picGraph.MouseDown);
  form.picGraph.SetEnabled(false);
  QTest::mousePress(view, Qt::LeftButton);
  EXPECT_EQ(*downs, 0);
}

TEST_F(PictureViewTest, PictureIsPaintedOnceAndTheOverlayInEachFrame) {
  int pictures = 0;
  int overlays = 0;
  view->SetPicture([&pictures](QPainter&, const QRectF&) { ++pictures; });
  view->SetOverlay([&overlays](QPainter&, const QRectF& rect) {
    ++overlays;
    EXPECT_EQ(rect, QRectF(0, 0, 200, 100));
  });
  view->grab();
  const int frames = overlays;
  form.picGraph.RedrawOverlay();
  view->grab();
  EXPECT_EQ(pictures, 1);
  EXPECT_GT(overlays, frames);
  form.picGraph.Redraw();
  view->grab();
  EXPECT_EQ(pictures, 2);
}

TEST_F(PictureViewTest, PointerFollowsItsNumber) {
  form.picGraph.SetPointer(13);
  EXPECT_EQ(view->cursor().shape(), Qt::WaitCursor);
  form.picGraph.SetPointer(0);
  EXPECT_EQ(view->cursor().shape(), Qt::ArrowCursor);
}

}  // namespace
}  // namespace dorvane
