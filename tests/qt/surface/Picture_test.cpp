#include "qt/surface/Picture.h"

#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <string>

#include "qt/surface/GuiFixture.h"
#include "support/Fault.h"
#include "support/TemporaryFolder.h"

namespace dorvane {
namespace {

using PictureTest = GuiTest;

QImage Decoded(const ByteVector& bytes) {
  return QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()),
                          static_cast<int>(bytes.size()));
}

void PaintRedSquare(Page& page) {
  page.Panel(10, 20, 30, 40)->Clear(Rgb(255, 0, 0));
}

TEST_F(PictureTest, TheExtensionChoosesTheFormatInAnyCase) {
  EXPECT_EQ(PictureFormatOf("a/b.png"), PictureFormat::Png);
  EXPECT_EQ(PictureFormatOf("b.SVG"), PictureFormat::Svg);
  EXPECT_EQ(PictureFormatOf("b.c.Pdf"), PictureFormat::Pdf);
}

TEST_F(PictureTest, OtherExtensionsFault) {
  for (const char* path : {"a.jpg", "a", "", "png", "a.png/b"}) {
    EXPECT_THROW(PictureFormatOf(path), Fault) << path;
  }
}

TEST_F(PictureTest, APanelIsAPartOfThePage) {
  const QImage image = Decoded(RenderPicture(PictureFormat::Png, {100, 80, 1}, PaintRedSquare));
  ASSERT_EQ(image.size(), QSize(100, 80));
  EXPECT_EQ(image.pixel(10, 20), 0xFFFF0000);
  EXPECT_EQ(image.pixel(39, 59), 0xFFFF0000);
  EXPECT_EQ(image.pixel(40, 59), 0xFFFFFFFF);
  EXPECT_EQ(image.pixel(9, 20), 0xFFFFFFFF);
}

TEST_F(PictureTest, AScaledPngHasMorePixelsAtTheSamePlaces) {
  const QImage image = Decoded(RenderPicture(PictureFormat::Png, {100, 80, 1.5}, PaintRedSquare));
  ASSERT_EQ(image.size(), QSize(150, 120));
  EXPECT_EQ(image.pixel(15, 30), 0xFFFF0000);
  EXPECT_EQ(image.pixel(59, 89), 0xFFFF0000);
  EXPECT_EQ(image.pixel(60, 89), 0xFFFFFFFF);
  // 144 dots an inch.
  EXPECT_NEAR(image.dotsPerMeterX(), 144 / 0.0254, 1);
}

TEST_F(PictureTest, ThePageKnowsItsSize) {
  RenderPicture(PictureFormat::Svg, {123, 45, 2}, [](Page& page) {
    EXPECT_EQ(page.Size().width_px, 123);
    const auto whole = page.Whole();
    whole->SetScale(0, 0, 123, 45);
    EXPECT_DOUBLE_EQ(whole->PixelSize().x, 1);
  });
}

TEST_F(PictureTest, SvgAndPdfAreWhatTheySay) {
  const ByteVector svg = RenderPicture(PictureFormat::Svg, {}, PaintRedSquare);
  const std::string svg_text(reinterpret_cast<const char*>(svg.data()), svg.size());
  EXPECT_EQ(svg_text.rfind("<?xml", 0), 0u);
  EXPECT_NE(svg_text.find("viewBox=\"0 0 1000 600\""), std::string::npos);
  EXPECT_NE(svg_text.find("#ff0000"), std::string::npos);
  const ByteVector pdf = RenderPicture(PictureFormat::Pdf, {}, PaintRedSquare);
  const std::string pdf_text(reinterpret_cast<const char*>(pdf.data()), pdf.size());
  EXPECT_EQ(pdf_text.rfind("%PDF", 0), 0u);
  // 1000 x 600 pixels at 96 an inch are 750 x 450 points.
  EXPECT_NE(pdf_text.find("[0 0 750"), std::string::npos);
}

TEST_F(PictureTest, AnSvgKeepsACurveInOneElement) {
  const ByteVector svg = RenderPicture(PictureFormat::Svg, {}, [](Page& page) {
    std::vector<Segment> segments;
    for (int i = 0; i < 500; ++i) {
      segments.push_back({{1.0 * i, 5.0 + i % 7}, {1.0 + i, 5.0 + (i + 1) % 7}});
    }
    page.Whole()->Lines(segments, 0);
  });
  EXPECT_LT(svg.size(), 12000u);
}

int StrokesIn(const ByteVector& svg) {
  const std::string text(reinterpret_cast<const char*>(svg.data()), svg.size());
  const auto path = text.find(" d=\"");
  return static_cast<int>(std::count(text.begin() + static_cast<long>(path),
                                     text.begin() + static_cast<long>(text.find('"', path + 4)),
                                     'M'));
}

// Dots are a pixel wide.
TEST_F(PictureTest, DotsInAColumnThatTouchAreOneStrokeOfADrawing) {
  const auto drawn = [](std::vector<Point> dots) {
    return StrokesIn(RenderPicture(PictureFormat::Svg, {},
                                   [&](Page& page) { page.Whole()->Dots(dots, Rgb(1, 2, 3)); }));
  };
  EXPECT_EQ(drawn({{10.1, 11}, {10.2, 10}, {10.3, 12}}), 1);
  EXPECT_EQ(drawn({{10.1, 10}, {10.2, 12}}), 2);
  EXPECT_EQ(drawn({{10.1, 10}, {10.6, 10}}), 2);
}

TEST_F(PictureTest, SizesWithoutPixelsOrTooLargeFault) {
  for (const PictureSize size : {PictureSize{0, 10, 1}, PictureSize{10, -1, 1},
                                 PictureSize{100, 100, 0}, PictureSize{1000, 100, 21}}) {
    EXPECT_THROW(RenderPicture(PictureFormat::Png, size, PaintRedSquare), Fault);
  }
}

TEST_F(PictureTest, AWrittenPictureReplacesTheOldFile) {
  TemporaryFolder folder;
  folder.Put("a.png", "old");
  SystemFileLayer files;
  WritePicture(files, folder.Path("a.png"), {100, 80, 1}, PaintRedSquare);
  EXPECT_EQ(folder.Get("a.png").substr(1, 3), "PNG");
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"a.png"}));
}

TEST_F(PictureTest, APaintFaultLeavesTheOldFile) {
  TemporaryFolder folder;
  folder.Put("a.png", "old");
  SystemFileLayer files;
  const auto paint = [](Page&) { throw Fault(FaultCode::BadArgument); };
  EXPECT_THROW(WritePicture(files, folder.Path("a.png"), {}, paint), Fault);
  EXPECT_EQ(folder.Get("a.png"), "old");
}

TEST_F(PictureTest, TheSamePageGivesTheSamePng) {
  EXPECT_EQ(RenderPicture(PictureFormat::Png, {}, PaintRedSquare),
            RenderPicture(PictureFormat::Png, {}, PaintRedSquare));
}

}  // namespace
}  // namespace dorvane
