#include "qt/surface/PainterSurface.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <vector>

#include "qt/surface/GuiFixture.h"

namespace dorvane {
namespace {

constexpr Color kWhite = Rgb(255, 255, 255);
constexpr Color kRed = Rgb(255, 0, 0);
constexpr QRgb kWhitePixel = 0xFFFFFFFF;
constexpr QRgb kRedPixel = 0xFFFF0000;

// An image of 40 x 30 pixels of the page with a surface on 10..30, 5..25, cleared to white on
// black.
class PainterSurfaceTest : public GuiTest {
 protected:
  explicit PainterSurfaceTest(double ratio = 1)
      : image(static_cast<int>(40 * ratio), static_cast<int>(30 * ratio), QImage::Format_RGB32) {
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::black);
    painter.begin(&image);
    surface.emplace(painter, QRectF(10, 5, 20, 20));
    surface->Clear(kWhite);
  }
  QRgb At(int x, int y) const { return image.pixel(x, y); }
  int Count(QRgb pixel) const {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) == pixel ? 1 : 0;
    }
    return count;
  }
  QImage image;
  QPainter painter;
  std::optional<PainterSurface> surface;
};

class SharpScreen : public PainterSurfaceTest {
 protected:
  SharpScreen() : PainterSurfaceTest(2) {}
};

TEST_F(PainterSurfaceTest, ClearFillsItsRectangleAlone) {
  EXPECT_EQ(Count(kWhitePixel), 400);
  EXPECT_EQ(At(10, 5), kWhitePixel);
  EXPECT_EQ(At(29, 24), kWhitePixel);
  EXPECT_EQ(At(9, 5), 0xFF000000);
}

TEST_F(PainterSurfaceTest, APixelIsItsShareOfTheScale) {
  surface->SetScale(100, 50, 140, 0);
  EXPECT_DOUBLE_EQ(surface->PixelSize().x, 2);
  EXPECT_DOUBLE_EQ(surface->PixelSize().y, 2.5);
}

TEST_F(PainterSurfaceTest, AScaleWithoutExtentIsNoFault) {
  surface->SetScale(5, 3, 5, 3);
  EXPECT_EQ(surface->PixelSize(), (Point{0, 0}));
  const std::array<Segment, 1> segments = {Segment{{5, 3}, {5, 3}}};
  surface->Lines(segments, kRed);
  surface->Box({5, 3}, {5, 3}, kRed, 1);
  EXPECT_EQ(surface->TextWidth("abc"), 0);
}

TEST_F(PainterSurfaceTest, ABoxLiesBetweenItsCorners) {
  surface->SetScale(0, 20, 20, 0);  // y upwards
  surface->Box({2, 4}, {6, 1}, kRed, 1);
  EXPECT_EQ(Count(kRedPixel), 12);
  EXPECT_EQ(At(12, 21), kRedPixel);
  EXPECT_EQ(At(15, 23), kRedPixel);
}

TEST_F(PainterSurfaceTest, ABoxIsCutAtTheRectangle) {
  surface->Box({-5, -5}, {50, 3}, kRed, 1);
  EXPECT_EQ(Count(kRedPixel), 60);
  surface->Box({-5, -5}, {-1, 30}, kRed, 1);
  EXPECT_EQ(Count(kRedPixel), 60);
}

TEST_F(PainterSurfaceTest, ABoxWithoutWidthIsOneCrispPixel) {
  surface->Box({7.3, 0}, {7.3, 20}, kRed, 1);
  EXPECT_EQ(Count(kRedPixel), 20);
}

TEST_F(PainterSurfaceTest, RulingsAtBothEdgesStayInside) {
  surface->Box({0, 0}, {0, 20}, kRed, 1);
  surface->Box({20, 0}, {20, 20}, kRed, 1);
  surface->Box({0, 20}, {20, 20}, kRed, 1);
  EXPECT_EQ(At(10, 10), kRedPixel);
  EXPECT_EQ(At(29, 10), kRedPixel);
  EXPECT_EQ(At(15, 24), kRedPixel);
  EXPECT_EQ(Count(kRedPixel), 20 + 20 + 18);
}

TEST_F(PainterSurfaceTest, HalfOpaqueRedOnWhiteIsPink) {
  surface->Box({0, 0}, {20, 20}, kRed, 0.5);
  const QRgb pixel = At(15, 15);
  EXPECT_EQ(qRed(pixel), 255);
  EXPECT_NEAR(qGreen(pixel), 127.5, 1);
}

TEST_F(PainterSurfaceTest, LinesReachTheirEndsAndStayInside) {
  surface->SetLineWidth(2);
  const std::array<Segment, 2> segments = {Segment{{-100, 10}, {100, 10}},
                                           Segment{{0, -100}, {0, 300}}};
  surface->Lines(segments, kRed);
  EXPECT_EQ(At(10, 14), kRedPixel);
  EXPECT_EQ(At(29, 15), kRedPixel);
  EXPECT_EQ(At(10, 24), kRedPixel);
  EXPECT_EQ(At(9, 14), 0xFF000000);
  EXPECT_EQ(At(30, 14), 0xFF000000);
  EXPECT_EQ(At(10, 25), 0xFF000000);
}

TEST_F(PainterSurfaceTest, LinesOutsideLeaveNothing) {
  const std::array<Segment, 2> segments = {Segment{{-5, -5}, {-1, 30}},
                                           Segment{{-30, 0}, {10, -30}}};
  surface->Lines(segments, kRed);
  EXPECT_EQ(Count(kWhitePixel), 400);
}

TEST_F(PainterSurfaceTest, ADotCoversTheLineWidth) {
  const std::array<Point, 1> dots = {Point{5, 5}};
  surface->SetLineWidth(2);
  surface->Dots(dots, kRed);
  EXPECT_EQ(Count(kRedPixel), 4);
  EXPECT_EQ(At(14, 9), kRedPixel);
  EXPECT_EQ(At(15, 10), kRedPixel);
}

TEST_F(PainterSurfaceTest, ADotBetweenPixelsIsShared) {
  const std::array<Point, 1> dots = {Point{5, 5.5}};  // half a pixel on each side of x
  surface->Dots(dots, kRed);
  for (const int x : {14, 15}) {
    EXPECT_EQ(qRed(At(x, 10)), 255);
    EXPECT_NEAR(qGreen(At(x, 10)), 127.5, 1);
  }
  EXPECT_EQ(At(16, 10), kWhitePixel);
  EXPECT_EQ(At(14, 11), kWhitePixel);
}

TEST_F(PainterSurfaceTest, DotsOutsideLeaveNothing) {
  const std::vector<Point> dots = {{-2, 5}, {22, 5}, {5, -2}, {5, 22}, {1e9, 5}, {5, -1e9}};
  surface->Dots(dots, kRed);
  EXPECT_EQ(Count(kWhitePixel), 400);
  EXPECT_EQ(Count(0xFF000000), 800);
}

TEST_F(PainterSurfaceTest, DotsAtTheEdgesStayInside) {
  surface->SetLineWidth(2);
  const std::vector<Point> dots = {{0, 0}, {20, 20}};
  surface->Dots(dots, kRed);
  EXPECT_EQ(At(10, 5), kRedPixel);
  EXPECT_EQ(At(29, 24), kRedPixel);
  EXPECT_EQ(Count(0xFF000000), 800);
}

TEST_F(PainterSurfaceTest, DotsOnAnotherKindOfImageGoThroughThePainter) {
  QImage gray(40, 30, QImage::Format_Grayscale8);
  gray.fill(Qt::white);
  QPainter gray_painter(&gray);
  PainterSurface on_gray(gray_painter, QRectF(0, 0, 40, 30));
  on_gray.SetLineWidth(4);
  const std::array<Point, 1> dots = {Point{10, 10}};
  on_gray.Dots(dots, Rgb(0, 0, 0));
  EXPECT_LT(qGray(gray.pixel(10, 10)), 10);
  EXPECT_EQ(qGray(gray.pixel(20, 20)), 255);
}

TEST_F(PainterSurfaceTest, ATextIsWrittenBelowItsPlace) {
  surface->SetFontSize(6);
  surface->Text({0, 0}, "HH", Rgb(0, 0, 0));
  EXPECT_LT(Count(kWhitePixel), 400);
  EXPECT_EQ(Count(0xFF000000) >= 800, true);
  EXPECT_NEAR(surface->TextHeight(), 8 * 1.17, 3);  // 6 points are 8 pixels
}

TEST_F(PainterSurfaceTest, TextsGrowWithTheirSizeAndLength) {
  surface->SetFontSize(10);
  const double width = surface->TextWidth("000");
  EXPECT_NEAR(surface->TextWidth("000000"), 2 * width, 1e-9);
  surface->SetFontSize(20);
  EXPECT_GT(surface->TextWidth("000"), 1.8 * width);
}

TEST_F(PainterSurfaceTest, JapaneseHasItsCharacters) {
  surface->SetFontSize(10);
  EXPECT_GT(surface->TextWidth("グラフ"), surface->TextWidth("iii"));
}

TEST_F(SharpScreen, RulingsAreOnePixelOfThePageWide) {
  surface->Box({7.3, 0}, {7.3, 20}, kRed, 1);
  EXPECT_EQ(Count(kRedPixel), 2 * 40);
}

TEST_F(SharpScreen, DotsCoverAsMuchOfThePage) {
  const std::array<Point, 1> dots = {Point{5, 5}};
  surface->SetLineWidth(2);
  surface->Dots(dots, kRed);
  EXPECT_EQ(Count(kRedPixel), 16);
  EXPECT_EQ(At(28, 18), kRedPixel);
  EXPECT_EQ(At(31, 21), kRedPixel);
}

}  // namespace
}  // namespace dorvane
