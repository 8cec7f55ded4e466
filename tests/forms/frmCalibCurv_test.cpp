#include "forms/frmCalibCurv.h"

#include <gmock/gmock.h>

#include "forms/FakePrinter.h"
#include "forms/FormFixture.h"
#include "program/ProgramFixture.h"

namespace dorvane {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

std::vector<std::string> TextsOf(const std::vector<Stroke>& strokes) {
  std::vector<std::string> texts;
  for (const Stroke& stroke : strokes) {
    if (stroke.kind == Stroke::Kind::Text) texts.push_back(stroke.text);
  }
  return texts;
}

class CalibCurvTest : public ProgramTest {
 protected:
  CalibCurvTest() {
    SetStartValues(program);
    result.points = {{100, 4.01}, {200, 7}};
    result.coefficients[0] = 1;
    result.coefficients[1] = 0.03;
    result.memo = "Energy(keV) = (1.e+000) + (0.03e+000)*Ch";
  }
  // Opens the window, works it, and closes it by its button.
  void Work(const std::function<void()>& work) {
    host.ExpectModal([&](Form&) {
      work();
      form.cmdOk.Press();
      EXPECT_FALSE(form.Visible());
    });
    form.Open(result);
  }
  std::vector<std::string> LabelsOnScreen() const {
    RecordingSurface surface;
    form.DrawCurve(surface);
    return TextsOf(surface.strokes);
  }

  ScriptedFormHost host;
  FakePrinter printer;
  frmCalibCurv form{program, host, printer};
  CalibrationResult result;
};

TEST_F(CalibCurvTest, HasItsCaptions) {
  EXPECT_EQ(form.Caption(), "Calibration Curve");
  EXPECT_EQ(form.cmdPrint.Caption(), "Print");
  EXPECT_EQ(form.cmdOk.Caption(), "O K");
}

TEST_F(CalibCurvTest, MemoIsShownAndCannotBeTypedOver) {
  Work([&] {
    EXPECT_EQ(form.txtMemo.Text(), result.memo);
    EXPECT_TRUE(form.txtMemo.ReadOnly());
  });
}

TEST_F(CalibCurvTest, CurveRunsOverTheChannelsOfTheLongestSpectrum) {
  Show(std::vector<std::int32_t>(2000, 1));
  Work([&] {
    EXPECT_THAT(LabelsOnScreen(), Contains("1800"));
    EXPECT_THAT(LabelsOnScreen(), Not(Contains("2000")));
  });
}

TEST_F(CalibCurvTest, PictureOnScreenLeavesTheMemoToItsBox) {
  Work([&] { EXPECT_THAT(LabelsOnScreen(), Not(Contains(result.memo))); });
}

TEST_F(CalibCurvTest, StraightLineDoesNotLookAtTheThirdCoefficient) {
  RecordingSurface without, with;
  Work([&] { form.DrawCurve(without); });
  result.coefficients[2] = 1e-5;
  Work([&] { form.DrawCurve(with); });
  EXPECT_EQ(with.Boxes()[0].from, without.Boxes()[0].from);
  EXPECT_EQ(TextsOf(with.strokes), TextsOf(without.strokes));
}

TEST_F(CalibCurvTest, ParabolaLooksAtTheThirdCoefficient) {
  RecordingSurface line, parabola;
  result.coefficients[2] = 1e-5;
  Work([&] { form.DrawCurve(line); });
  result.form = 1;
  Work([&] { form.DrawCurve(parabola); });
  EXPECT_NE(TextsOf(parabola.strokes), TextsOf(line.strokes));
}

TEST_F(CalibCurvTest, NewResultIsDrawnAnew) {
  int drawn = 0;
  form.picCurve.RedrawWanted.Connect([&] { ++drawn; });
  Work([] {});
  EXPECT_EQ(drawn, 1);
}

TEST_F(CalibCurvTest, PrintSendsTheSamePictureBlackOnWhite) {
  Work([&] {
    form.cmdPrint.Press();
    EXPECT_TRUE(form.Visible());
  });
  EXPECT_THAT(printer.titles, ElementsAre("Calibration Curve"));
  EXPECT_EQ(printer.orientation, Orientation::Landscape);
  EXPECT_THAT(TextsOf(printer.strokes), Contains("Energy Calibration Curve"));
  EXPECT_THAT(TextsOf(printer.strokes), Contains(result.memo));
  EXPECT_EQ(printer.strokes.front().color, Rgb(255, 255, 255));
}

TEST_F(CalibCurvTest, PrinterThatIsNotReadyIsTold) {
  printer.ready = false;
  dialogs.ExpectMessage("Printer not ready");
  Work([&] { form.cmdPrint.Press(); });
  EXPECT_THAT(printer.titles, IsEmpty());
}

TEST_F(CalibCurvTest, WithoutPointsTheCurveIsShown) {
  result.points.clear();
  Work([&] { EXPECT_THAT(LabelsOnScreen(), Contains("keV")); });
}

}  // namespace
}  // namespace dorvane
