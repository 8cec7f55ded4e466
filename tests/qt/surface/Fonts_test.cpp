#include "qt/surface/Fonts.h"

#include <QFontMetricsF>
#include <QGuiApplication>

#include "qt/surface/GuiFixture.h"

namespace dorvane {
namespace {

using Fonts = GuiTest;

TEST_F(Fonts, DigitsHaveEqualWidthSoThatReadoutsAlign) {
  const QFontMetricsF metrics(ProgramFont(QGuiApplication::font()));
  const double zero = metrics.horizontalAdvance('0');
  for (const char digit : {'1', '2', '3', '4', '5', '6', '7', '8', '9'}) {
    EXPECT_EQ(metrics.horizontalAdvance(digit), zero) << digit;
  }
}

TEST_F(Fonts, SizeAndStyleOfTheDesktopStay) {
  QFont base;
  base.setPointSizeF(17.5);
  base.setBold(true);
  const QFont font = ProgramFont(base);
  EXPECT_EQ(font.pointSizeF(), 17.5);
  EXPECT_TRUE(font.bold());
}

TEST_F(Fonts, SignsOfTheAxesAndJapaneseHaveGlyphs) {
  const QFontMetricsF metrics(ProgramFont(QGuiApplication::font()));
  for (const char32_t sign : U"\u00C5\u03B8\u00B0\u212B\u30DE\u30B0\u9AA8") {
    if (sign == 0) continue;
    EXPECT_TRUE(metrics.inFontUcs4(sign)) << static_cast<unsigned>(sign);
  }
}

TEST_F(Fonts, PicturesAreDrawnInTheProgramsFont) {
  EXPECT_EQ(QGuiApplication::font().families(), ProgramFont(QFont()).families());
}

}  // namespace
}  // namespace dorvane
