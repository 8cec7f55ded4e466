#include "program/PeakSheet.h"

#include <gmock/gmock.h>

#include <memory>

#include "display/RecordingPage.h"
#include "processing/Units.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

// Of A4 in portrait, and wide enough for any columns.
constexpr PictureSize kPortrait{680, 1009, 1};
constexpr PictureSize kWide{1000, 600, 1};

class PeakSheetTest : public testing::Test {
 protected:
  void Peaks(int count) {
    PeakTable& table = workspace->Peaks[kData];
    table.Count = ToInt16(count);
    for (int i = 0; i < count; ++i) {
      table.Peaks[i].Center = 10 * i;
      table.Peaks[i].HalfWidth = 2;
      table.Peaks[i].Height = 12345.678 * (i + 1);
    }
  }
  std::vector<Stroke> Sheet(int sheet_no, PictureSize size = kPortrait) {
    RecordingPage page(size);
    DrawPeakSheet(Report(), page, sheet_no);
    texts = page.Texts();
    return page.Strokes();
  }
  PeakSheets Report() const { return PeakSheetsOf(*workspace, kData, kUnitKeV); }
  int CountFor(int peaks, PictureSize size = kPortrait) {
    Peaks(peaks);
    return PeakSheetCount(Report(), size);
  }
  static Stroke Find(const std::vector<Stroke>& strokes, const std::string& text) {
    for (const Stroke& stroke : strokes) {
      if (stroke.text == text) return stroke;
    }
    ADD_FAILURE() << text;
    return {};
  }
  static double RightEnd(const Stroke& stroke) {
    return stroke.from.x + RecordingSurface::kCharWidth * static_cast<double>(stroke.text.size());
  }

  static constexpr int kData = 3;
  std::unique_ptr<Workspace> workspace = std::make_unique<Workspace>();
  std::vector<std::string> texts;  // of the last sheet
};

TEST_F(PeakSheetTest, TitleIsLargerThanTheRest) {
  Peaks(1);
  const auto strokes = Sheet(0);
  const Stroke title = Find(strokes, "Peak Report");
  for (const Stroke& stroke : strokes) {
    if (stroke.kind == Stroke::Kind::Text && stroke.text != title.text) {
      EXPECT_LT(stroke.font_size, title.font_size) << stroke.text;
    }
  }
}

TEST_F(PeakSheetTest, MeasurementStandsBelowTheTitleAndAboveTheHeader) {
  workspace->Spectra[kData].MsuName.Set("run 7");
  Peaks(1);
  const auto strokes = Sheet(0);
  const Stroke name = Find(strokes, "  Measurement Name : run 7");
  EXPECT_GT(name.from.y, Find(strokes, "Peak Report").from.y);
  EXPECT_LT(name.from.y, Find(strokes, "Intensity").from.y);
}

TEST_F(PeakSheetTest, HeaderAndPeaksHaveTheFieldsOfTheFile) {
  workspace->DefaultProp.EGC[0] = 0;
  workspace->DefaultProp.EGC[1] = 0.1;
  workspace->DefaultProp.EGC[2] = 0;
  workspace->DefaultProp.TwoTheta = 0;
  Peaks(1);
  Sheet(0);
  const std::vector<std::string> fields(texts.begin() + 2, texts.end());
  EXPECT_THAT(fields, ElementsAre("Peak(Ch)", "Peak(keV)", "Intensity", "FWHM(Ch)", "FWHM(keV)",
                                  "FWHM(d)", "Amplitude", "Gauss(%)", "Type",  //
                                  "1.0000", "0.1000", "12345.68", "4.00", "0.400", "0.000", "0.00",
                                  "0.0", "N"));
}

TEST_F(PeakSheetTest, ColumnsEndBelowOneAnotherAndInsideOfTheSheet) {
  Peaks(20);
  const auto strokes = Sheet(0, kWide);
  const double end = RightEnd(Find(strokes, "Intensity"));
  EXPECT_NEAR(RightEnd(Find(strokes, "12345.68")), end, 1e-9);
  EXPECT_NEAR(RightEnd(Find(strokes, "246913.56")), end, 1e-9);
  for (const Stroke& stroke : strokes) EXPECT_LE(RightEnd(stroke), kWide.width_px);
}

TEST_F(PeakSheetTest, LettersShrinkUntilTheColumnsFitTheWidth) {
  Peaks(3);
  const double wide = Find(Sheet(0, kWide), "Intensity").font_size;
  const auto strokes = Sheet(0, {400, 600, 1});
  EXPECT_LT(Find(strokes, "Intensity").font_size, wide);
  for (const Stroke& stroke : strokes) {
    if (stroke.kind != Stroke::Kind::Line) continue;
    EXPECT_NEAR(stroke.to.x, 400, 1e-9);
  }
}

// Header and foot leave 907 pixels, 53 lines of 17.
TEST_F(PeakSheetTest, NumberOfSheetsIsKnownFromTheirHeight) {
  EXPECT_EQ(CountFor(0), 1);
  EXPECT_EQ(CountFor(53), 1);
  EXPECT_EQ(CountFor(54), 2);
  EXPECT_EQ(CountFor(100), 2);
  EXPECT_EQ(CountFor(100, {680, 50, 1}), 100);
}

TEST_F(PeakSheetTest, EverySheetHasTheHeaderItsPeaksAndItsNumber) {
  Peaks(60);
  Sheet(0);
  EXPECT_THAT(texts, Contains("521.0000"));
  EXPECT_THAT(texts, Not(Contains("531.0000")));
  EXPECT_THAT(texts, Contains("1 / 2"));
  Sheet(1);
  EXPECT_THAT(texts, Contains("Peak Report"));
  EXPECT_THAT(texts, Contains("Peak(keV)"));
  EXPECT_THAT(texts, Not(Contains("521.0000")));
  EXPECT_THAT(texts, Contains("531.0000"));
  EXPECT_THAT(texts, Contains("591.0000"));
  EXPECT_THAT(texts, Contains("2 / 2"));
}

TEST_F(PeakSheetTest, LinesStayAboveTheFootOfTheSheet) {
  Peaks(60);
  const auto strokes = Sheet(0);
  const double last = Find(strokes, "521.0000").from.y + RecordingSurface::kCharHeight;
  EXPECT_LE(last, Find(strokes, "1 / 2").from.y);
}

TEST_F(PeakSheetTest, SingleSheetHasNoNumber) {
  Peaks(53);
  Sheet(0);
  EXPECT_THAT(texts, Not(Contains("1 / 1")));
}

TEST_F(PeakSheetTest, EmptyTableIsASheetWithTheHeader) {
  Sheet(0);
  EXPECT_EQ(texts.size(), 2u + 9u);
}

}  // namespace
}  // namespace dorvane
