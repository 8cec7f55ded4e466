#include "qt/QtPrinter.h"

#include <gtest/gtest.h>

#include <QPrinterInfo>

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

TEST(QtPrinter, WithoutAPrinterItIsNotReady) {
  if (!QPrinterInfo::defaultPrinter().isNull()) GTEST_SKIP() << "there is a printer";
  QtPrinter printer;
  EXPECT_FALSE(printer.Print("Title", Orientation::Portrait, [](Page&) { FAIL(); }));
}

}  // namespace
}  // namespace dorvane
