#include "qt/QtPrinter.h"

#include <gtest/gtest.h>

#include <QPrinterInfo>

#include "support/ScriptedDialogs.h"
#include "support/TemporaryFolder.h"

namespace dorvane {
namespace {

// The sheet is a PDF file.
class QtPrinterTest : public testing::Test {
 protected:
  QtPrinterTest() {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setPageSize(QPageSize(QPageSize::A4));
  }
  bool Print(const std::string& file, Orientation orientation, const PaintPage& paint) {
    return PrintPages(file, orientation, [&](Page& page, int) {
      paint(page);
      return false;
    });
  }
  bool PrintPages(const std::string& file, Orientation orientation, const PaintPages& paint) {
    printer.setOutputFileName(QString::fromStdString(folder.Path(file)));
    return PrintOn(printer, "Title", orientation, paint);
  }

  TemporaryFolder folder;
  QPrinter printer{QPrinter::HighResolution};
};

// A4 is 210 x 297 mm; margins of 15 mm leave 180 x 267 mm, at 96 pixels an inch 680 x 1009.
TEST_F(QtPrinterTest, PageHasThePrintableSizeInPixelsOfScreens) {
  PictureSize size;
  const auto look = [&](Page& page) { size = page.Size(); };
  ASSERT_TRUE(Print("a.pdf", Orientation::Portrait, look));
  EXPECT_NEAR(size.width_px, 680, 1);
  EXPECT_NEAR(size.height_px, 1009, 1);
  ASSERT_TRUE(Print("b.pdf", Orientation::Landscape, look));
  EXPECT_NEAR(size.width_px, 1009, 1);
  EXPECT_NEAR(size.height_px, 680, 1);
}

TEST_F(QtPrinterTest, PageIsPaintedOnceAndComesOut) {
  int painted = 0;
  ASSERT_TRUE(Print("a.pdf", Orientation::Landscape, [&](Page& page) {
    ++painted;
    page.Whole()->Text({10, 10}, "text", Rgb(0, 0, 0));
  }));
  EXPECT_EQ(painted, 1);
  EXPECT_EQ(folder.Get("a.pdf").substr(0, 5), "%PDF-");
}

TEST_F(QtPrinterTest, PrinterThatTakesNoDocumentIsNotReady) {
  EXPECT_FALSE(Print("missing/a.pdf", Orientation::Portrait, [](Page&) {}));
}

int PagesOf(const std::string& pdf) {
  int pages = 0;
  const std::string mark = "/Type /Page\n";
  for (auto at = pdf.find(mark); at != std::string::npos; at = pdf.find(mark, at + 1)) ++pages;
  return pages;
}

TEST_F(QtPrinterTest, PagesArePaintedUntilNoOtherFollows) {
  std::vector<int> painted;
  ASSERT_TRUE(PrintPages("a.pdf", Orientation::Portrait, [&](Page&, int page_no) {
    painted.push_back(page_no);
    return page_no < 2;
  }));
  EXPECT_EQ(painted, (std::vector{0, 1, 2}));
  EXPECT_EQ(PagesOf(folder.Get("a.pdf")), 3);
}

// Where the desktop has no printer.
class NoPrinterTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!QPrinterInfo::defaultPrinter().isNull()) GTEST_SKIP() << "there is a printer";
  }
  static bool TwoPages(Page& page, int page_no) {
    page.Whole()->Text({10, 10}, "text", Rgb(0, 0, 0));
    return page_no < 1;
  }

  TemporaryFolder folder;
  SystemFileLayer files;
  ScriptedDialogs dialogs;
  QtPrinter printer{dialogs, files};
};

TEST_F(NoPrinterTest, DocumentBecomesAPdfFileThatTheUserNames) {
  dialogs.ExpectSave(folder.Path("b.pdf"));
  EXPECT_TRUE(printer.Print("a.npd", Orientation::Landscape, TwoPages));
  EXPECT_EQ(dialogs.LastRequest().file_name, "a.npd.pdf");
  EXPECT_EQ(dialogs.LastRequest().filter, "PDF file (*.pdf)|*.pdf");
  EXPECT_TRUE(dialogs.LastRequest().overwrite_prompt);
  const std::string pdf = folder.Get("b.pdf");
  EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
  EXPECT_EQ(PagesOf(pdf), 2);
  // A4 is 842 x 595 points.
  EXPECT_NE(pdf.find("/MediaBox [0 0 842"), std::string::npos);
}

TEST_F(NoPrinterTest, CancelIsNoFailureAndPrintsNothing) {
  dialogs.ExpectSave({});
  EXPECT_TRUE(printer.Print("a.npd", Orientation::Portrait, [](Page&, int) {
    ADD_FAILURE();
    return false;
  }));
}

TEST_F(NoPrinterTest, AFileThatCanNotBeWrittenIsNotReady) {
  dialogs.ExpectSave(folder.Path("missing/b.pdf"));
  EXPECT_FALSE(printer.Print("a.npd", Orientation::Portrait, TwoPages));
}

TEST_F(NoPrinterTest, PaintedPageHasTheSizeThatWasTold) {
  for (const Orientation orientation : {Orientation::Portrait, Orientation::Landscape}) {
    dialogs.ExpectSave(folder.Path("b.pdf"));
    PictureSize painted;
    printer.Print("a", orientation, [&](Page& page, int) {
      painted = page.Size();
      return false;
    });
    EXPECT_EQ(painted.width_px, printer.SheetSize(orientation).width_px);
    EXPECT_EQ(painted.height_px, printer.SheetSize(orientation).height_px);
    EXPECT_EQ(painted.width_px > painted.height_px, orientation == Orientation::Landscape);
  }
}

}  // namespace
}  // namespace dorvane
