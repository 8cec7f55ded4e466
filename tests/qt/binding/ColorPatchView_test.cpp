#include "qt/binding/ColorPatchView.h"

#include "BindingTest.h"

namespace dorvane {
namespace {

class ColorPatchTest : public BindingTest {
 protected:
  QImage Picture() { return Of(form.cmdColor)->grab().toImage(); }
  QColor Middle() {
    const QImage picture = Picture();
    return picture.pixelColor(picture.rect().center());
  }
};

TEST_F(ColorPatchTest, ItShowsItsColourRedInTheLowByte) {
  form.cmdColor.SetFill(0x0A141E);
  EXPECT_EQ(Middle(), QColor(0x1E, 0x14, 0x0A));
}

TEST_F(ColorPatchTest, WithoutAColourItShowsTheGround) {
  const QColor ground = Middle();
  form.cmdColor.SetFill(Rgb(255, 0, 0));
  form.cmdColor.SetFill({});
  EXPECT_EQ(Middle(), ground);
}

TEST_F(ColorPatchTest, TheSelectedOneHasARing) {
  form.cmdColor.SetFill(Rgb(255, 0, 0));
  const QImage before = Picture();
  form.cmdColor.SetSelected(true);
  EXPECT_NE(Picture(), before);
  EXPECT_EQ(Middle(), QColor(255, 0, 0));
}

TEST_F(ColorPatchTest, MouseAndSpaceBarPressIt) {
  const auto presses = Count(form.cmdColor.Click);
  QTest::mouseClick(Of(form.cmdColor), Qt::LeftButton);
  Of(form.cmdColor)->setFocus();
  QTest::keyClick(Of(form.cmdColor), Qt::Key_Space);
  EXPECT_EQ(*presses, 2);
}

TEST_F(ColorPatchTest, ItIsToldByNameAndComponents) {
  form.cmdColor.SetFill(Rgb(1, 2, 3));
  EXPECT_EQ(Of(form.cmdColor)->accessibleName(), "Graph1");
  EXPECT_EQ(Of(form.cmdColor)->toolTip(), "Red 1, green 2, blue 3");
}

}  // namespace
}  // namespace dorvane
