#include "forms/Printing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "forms/FakePrinter.h"
#include "forms/FormFixture.h"
#include "program/ProgramFixture.h"
#include "support/MemorySettings.h"

namespace dorvane {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class PrintingTest : public ProgramTest {
 protected:
  // A job of three sheets, each with its number and the dot size.
  PrintJob ThreeSheets() {
    return {
        "job", [](const PictureSize&) { return 3; },
        [](Page& page, int page_no, std::int16_t draw_width) {
          page.Whole()->Text({0, 0}, std::to_string(page_no) + ":" + std::to_string(draw_width), 0);
        }};
  }
  void Answer(Button& button, bool horizontal = false) {
    host.ExpectModal([&button, horizontal, this](Form&) {
      ask.optOrientation.SetIndex(horizontal ? 1 : 0);
      ask.ImnDrawWidth.Type("2");
      button.Press();
    });
  }

  ScriptedFormHost host;
  MemorySettings settings;
  FakePrinter printer;
  frmPrint ask{program, host, settings};
  frmPreView preview{host};
  Printing printing{program, ask, preview, printer};
};

TEST_F(PrintingTest, OkPrintsEverySheetWithTheDotSizeInTheDirectionChosen) {
  Answer(ask.cmdOk, true);
  printing.Run(ThreeSheets());
  EXPECT_THAT(printer.titles, ElementsAre("job"));
  EXPECT_EQ(printer.orientation, Orientation::Landscape);
  ASSERT_EQ(printer.pages.size(), 3u);
  EXPECT_THAT(printer.pages[0].Texts(), ElementsAre("0:2"));
  EXPECT_THAT(printer.pages[2].Texts(), ElementsAre("2:2"));
}

TEST_F(PrintingTest, VerticalPaperIsPortrait) {
  Answer(ask.cmdOk);
  printing.Run(ThreeSheets());
  EXPECT_EQ(printer.orientation, Orientation::Portrait);
}

TEST_F(PrintingTest, CancelPrintsAndShowsNothing) {
  Answer(ask.cmdCan);
  printing.Run(ThreeSheets());
  EXPECT_THAT(printer.titles, IsEmpty());
  EXPECT_THAT(host.Shown(), ElementsAre("frmPrint"));
}

TEST_F(PrintingTest, APrinterThatIsNotReadyIsTold) {
  printer.ready = false;
  Answer(ask.cmdOk);
  dialogs.ExpectMessage("Printer not ready");
  printing.Run(ThreeSheets());
}

TEST_F(PrintingTest, PreviewShowsTheSheetsThatWouldBePrintedAndPrintsNone) {
  Answer(ask.cmdPreview, true);
  host.ExpectModal([this](Form& opened) {
    EXPECT_EQ(opened.Name(), "frmPreView");
    EXPECT_EQ(preview.SheetSize().width_px, printer.SheetSize(Orientation::Landscape).width_px);
    RecordingPage page(preview.SheetSize());
    preview.cmdNext.Press();
    preview.DrawSheet(page);
    EXPECT_THAT(page.Texts(), ElementsAre("1:2"));
    preview.cmdOk.Press();
  });
  printing.Run(ThreeSheets());
  EXPECT_THAT(printer.titles, IsEmpty());
}

TEST_F(PrintingTest, PreviewGoesFromTheFirstToTheLastSheet) {
  Answer(ask.cmdPreview);
  host.ExpectModal([this](Form&) {
    EXPECT_TRUE(preview.cmdBack.Visible());
    EXPECT_FALSE(preview.cmdBack.Enabled());
    EXPECT_EQ(preview.lblSheet.Caption(), "1 of 3");
    preview.cmdNext.Press();
    preview.cmdNext.Press();
    EXPECT_EQ(preview.lblSheet.Caption(), "3 of 3");
    EXPECT_FALSE(preview.cmdNext.Enabled());
    preview.cmdBack.Press();
    EXPECT_EQ(preview.lblSheet.Caption(), "2 of 3");
    preview.cmdOk.Press();
  });
  printing.Run(ThreeSheets());
}

TEST_F(PrintingTest, ASpectrumsPreviewIsTheSheetThatIsPrinted) {
  Show({1, 2, 3, 4, 5}, "a.npd");
  std::vector<std::string> shown;
  Answer(ask.cmdPreview, true);
  host.ExpectModal([&](Form&) {
    EXPECT_FALSE(preview.cmdNext.Visible());
    RecordingPage page(preview.SheetSize());
    preview.DrawSheet(page);
    shown = page.Texts();
    preview.cmdOk.Press();
  });
  printing.PrintWindow();
  EXPECT_THAT(shown, Contains("a.npd"));
  Answer(ask.cmdOk, true);
  printing.PrintWindow();
  EXPECT_THAT(printer.titles, ElementsAre("a.npd"));
  EXPECT_EQ(printer.pages.at(0).Texts(), shown);
}

TEST_F(PrintingTest, ASpectrumIsDrawnWithTheDotSizeThatWasTyped) {
  Show({1, 2, 3, 4, 5}, "a.npd");
  Answer(ask.cmdOk);  // types 2
  printing.PrintWindow();
  std::vector<double> widths;
  for (const Stroke& stroke : printer.strokes) {
    if (stroke.kind == Stroke::Kind::Line) widths.push_back(stroke.width);
  }
  EXPECT_THAT(widths, testing::AllOf(testing::SizeIs(testing::Ge(1u)), testing::Each(2)));
}

TEST_F(PrintingTest, DialogNamesTheFileOfTheCurrentGraph) {
  Show({1, 2, 3}, "a.npd");
  host.ExpectModal([this](Form&) {
    EXPECT_EQ(ask.txtFileName.Text(), "a.npd");
    ask.cmdCan.Press();
  });
  printing.PrintWindow();
}

TEST_F(PrintingTest, WithoutAGraphNothingIsAsked) {
  printing.PrintWindow();
  EXPECT_THAT(host.Shown(), IsEmpty());
}

}  // namespace
}  // namespace dorvane
