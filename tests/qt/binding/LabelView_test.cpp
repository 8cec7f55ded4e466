#include "qt/binding/LabelView.h"

#include <algorithm>

#include "BindingTest.h"

namespace dorvane {
namespace {

class LabelViewTest : public BindingTest {};

TEST_F(LabelViewTest, AWarningIsRedOnALightAndOnADarkWindow) {
  const auto reddest = [this] {
    const QImage image = Of(form.lblName)->grab().toImage();
    int most = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QColor color = image.pixelColor(x, y);
        most = std::max(most, color.red() - std::max(color.green(), color.blue()));
      }
    }
    return most;
  };
  for (const QColor ground : {QColor(240, 240, 240), QColor(40, 40, 40)}) {
    QPalette palette = Window().palette();
    palette.setColor(QPalette::Window, ground);
    palette.setColor(QPalette::WindowText, ground.lightness() < 128 ? Qt::white : Qt::black);
    Window().setPalette(palette);
    form.lblName.SetWarning(false);
    EXPECT_LT(reddest(), 20);
    form.lblName.SetWarning(true);
    EXPECT_GT(reddest(), 60);
  }
}

}  // namespace
}  // namespace dorvane
