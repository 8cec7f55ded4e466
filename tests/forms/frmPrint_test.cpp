#include "forms/frmPrint.h"

#include <gtest/gtest.h>

#include "forms/FormFixture.h"
#include "program/ProgramFixture.h"
#include "support/MemorySettings.h"

namespace dorvane {
namespace {

class PrintDialogTest : public ProgramTest {
 protected:
  void Work(const std::function<void()>& work) {
    host.ExpectModal([&](Form&) { work(); });
    form.Open("a.npd");
  }

  ScriptedFormHost host;
  MemorySettings settings;
  frmPrint form{program, host, settings};
};

TEST_F(PrintDialogTest, ShowsTheNameVerticalPaperAndADotSizeOfOneAtFirst) {
  Work([&] {
    EXPECT_EQ(form.Caption(), "Print");
    EXPECT_EQ(form.txtFileName.Text(), "a.npd");
    EXPECT_TRUE(form.txtFileName.ReadOnly());
    EXPECT_EQ(form.optOrientation.Captions().at(0), "Vertical");
    EXPECT_EQ(form.optOrientation.Captions().at(1), "Horizontal");
    EXPECT_EQ(form.optOrientation.Index(), 0);
    EXPECT_EQ(form.ImnDrawWidth.Text(), "1");
    form.cmdCan.Press();
  });
}

TEST_F(PrintDialogTest, OkIsModeTwoWithTheDotSize) {
  Work([&] {
    form.ImnDrawWidth.Type("3");
    form.cmdOk.Press();
  });
  EXPECT_EQ(form.OkPb, -1);
  EXPECT_EQ(form.PreViewPb, 0);
  EXPECT_EQ(form.GetPrintMode, 2);
  EXPECT_EQ(form.GetDrawWidth, 3);
}

TEST_F(PrintDialogTest, PreviewIsModeOneWithTheDotSize) {
  Work([&] {
    form.ImnDrawWidth.Type("2");
    form.cmdPreview.Press();
  });
  EXPECT_EQ(form.OkPb, 0);
  EXPECT_EQ(form.PreViewPb, -1);
  EXPECT_EQ(form.GetPrintMode, 1);
  EXPECT_EQ(form.GetDrawWidth, 2);
}

TEST_F(PrintDialogTest, CancelHasBothFlagsAndTheModeAtZero) {
  Work([&] { form.cmdCan.Press(); });
  EXPECT_EQ(form.OkPb, 0);
  EXPECT_EQ(form.PreViewPb, 0);
  EXPECT_EQ(form.GetPrintMode, 0);
}

TEST_F(PrintDialogTest, HorizontalIsMinusOneAndVerticalZero) {
  Work([&] {
    form.optOrientation.SetIndex(1);
    EXPECT_EQ(form.GetOrientation, -1);
    form.optOrientation.SetIndex(0);
    EXPECT_EQ(form.GetOrientation, 0);
    form.cmdCan.Press();
  });
}

TEST_F(PrintDialogTest, CancelLeavesTheDotSizeAtWhatWasShownLast) {
  Work([&] {
    form.ImnDrawWidth.Type("5");
    form.cmdCan.Press();
  });
  EXPECT_EQ(workspace.DotSize, 5);
  Work([&] {
    EXPECT_EQ(form.ImnDrawWidth.Text(), "5");
    form.cmdCan.Press();
  });
}

TEST_F(PrintDialogTest, ASecondOpeningStartsWithTheFieldsCleared) {
  Work([&] {
    form.optOrientation.SetIndex(1);
    form.cmdOk.Press();
  });
  Work([&] {
    EXPECT_EQ(form.OkPb, 0);
    EXPECT_EQ(form.PreViewPb, 0);
    EXPECT_EQ(form.GetPrintMode, 0);
    EXPECT_EQ(form.GetOrientation, 0);
    EXPECT_EQ(form.GetDrawWidth, 0);
    EXPECT_EQ(form.optOrientation.Index(), 0);
    form.cmdCan.Press();
  });
}

TEST_F(PrintDialogTest, AStoredDotSizeOfZeroBecomesOne) {
  workspace.DotSize = 0;
  Work([&] {
    EXPECT_EQ(workspace.DotSize, 1);
    form.ImnDrawWidth.Type("0");
    EXPECT_EQ(workspace.DotSize, 0);
    form.cmdCan.Press();
  });
  Work([&] {
    EXPECT_EQ(form.ImnDrawWidth.Text(), "1");
    form.cmdCan.Press();
  });
}

TEST_F(PrintDialogTest, DotSizeIsLimitedToTwenty) {
  Work([&] {
    for (const auto& [typed, shown] : {std::pair{"21", "20"}, {"-1", "0"}, {"1E300", "20"}}) {
      form.ImnDrawWidth.Type(typed);
      EXPECT_EQ(form.ImnDrawWidth.Text(), shown) << typed;
    }
    form.cmdCan.Press();
  });
}

TEST_F(PrintDialogTest, DotSizeIsThereAtTheNextStart) {
  Work([&] {
    form.ImnDrawWidth.Type("4");
    form.cmdCan.Press();
  });
  workspace.DotSize = 0;
  const frmPrint next(program, host, settings);
  EXPECT_EQ(workspace.DotSize, 4);
}

TEST_F(PrintDialogTest, AKeptDotSizeThatIsNoneCountsAsZero) {
  for (const char* kept : {"x", "", "-7"}) {
    settings.SetTexts("DotSize", {kept});
    const frmPrint next(program, host, settings);
    EXPECT_EQ(workspace.DotSize, 0) << kept;
  }
}

}  // namespace
}  // namespace dorvane
