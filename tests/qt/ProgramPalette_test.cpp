#include "qt/ProgramPalette.h"

#include <gtest/gtest.h>

namespace dorvane {
namespace {

TEST(ProgramPalette, QuietTextsAreOfTheTextsColourOnAnyGround) {
  for (const QColor& ink : {QColor(250, 250, 250), QColor(20, 20, 20)}) {
    QPalette base;
    base.setColor(QPalette::Text, ink);
    base.setColor(QPalette::PlaceholderText, Qt::black);
    const QPalette palette = ProgramPalette(base);
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
      const QColor quiet = palette.color(group, QPalette::PlaceholderText);
      EXPECT_EQ(quiet.rgb(), ink.rgb());
      EXPECT_LT(quiet.alpha(), 255);
    }
  }
}

TEST(ProgramPalette, OtherColoursStay) {
  const QPalette base(QColor(40, 60, 80));
  EXPECT_EQ(ProgramPalette(base).color(QPalette::Highlight), base.color(QPalette::Highlight));
  EXPECT_EQ(ProgramPalette(base).color(QPalette::Button), base.color(QPalette::Button));
}

}  // namespace
}  // namespace dorvane
