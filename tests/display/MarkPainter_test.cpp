#include "display/MarkPainter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "display/DrawSpectFixture.h"

namespace dorvane {
namespace {

class MarkTest : public DrawSpectTest {};

TEST_F(MarkTest, RedrawPaintsInItsOrder) {
  Curve(Flat(3), 0);
  engine->SetSpectrum(0, 1, Flat(3), kOwn);
  Show(0, 100);
  engine->AddPeakLine(0, 50);
  engine->AddText(0, 20, 10, "text", kInk, 0, 0);
  engine->AddSymbol(0, 30, 10, "symbol", kInk, 0, 0);
  engine->AddNamedLine(0, 40, "line", kInk, 0, 0);
  engine->SetDivisions(0, 2);
  surface.Forget();
  engine->Redraw(0);
  std::string order;
  for (const Stroke& stroke : surface.strokes) {
    switch (stroke.kind) {
      case Stroke::Kind::Clear:
        order += "clear ";
        break;
      case Stroke::Kind::Line:
        order += stroke.color == kInk ? "first " : "second ";
        break;
      case Stroke::Kind::Dot:
        order += "dot ";
        break;
      case Stroke::Kind::Box:
        order += stroke.from.x == stroke.to.x ? "upright " : "level ";
        break;
      case Stroke::Kind::Text:
        order += stroke.text + " ";
        break;
    }
  }
  EXPECT_EQ(order,
            "clear first first first dot dot second second second dot dot upright text symbol "
            "upright line level ");
}

TEST_F(MarkTest, PeakLinesStandOverTheWholeHeightOfShownChannels) {
  Show(100, 100);
  engine->SetYScale(0, kLinear, 500);
  engine->SetMarkColors(kOwn, kInk);
  for (const std::int16_t channel : {99, 100, 199, 200}) engine->AddPeakLine(0, channel);
  surface.Forget();
  engine->Redraw(0);
  const auto lines = surface.Boxes();
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].from, (Point{100, 0}));
  EXPECT_EQ(lines[0].to, (Point{100, 500}));
  EXPECT_EQ(lines[1].from.x, 199);
  EXPECT_EQ(lines[0].color, kOwn);
}

TEST_F(MarkTest, DeletePeakLineRedrawsOnDemand) {
  engine->AddPeakLine(0, 5);
  engine->DeletePeakLine(0, -1, 0);
  EXPECT_TRUE(surface.strokes.empty());
  engine->DeletePeakLine(0, -1, -1);
  EXPECT_EQ(surface.strokes.size(), 1u);
}

TEST_F(MarkTest, ScaleLinesStandBetweenTheDivisions) {
  Show(0, 100);
  engine->SetYScale(0, kLinear, 800);
  engine->SetDivisions(0, 4);
  engine->Redraw(0);
  const auto lines = surface.Boxes();
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0].from, (Point{0, 200}));
  EXPECT_EQ(lines[0].to, (Point{99, 200}));
  EXPECT_EQ(lines[2].from.y, 600);
}

TEST_F(MarkTest, AHundredAndFirstTextIsToldAndIgnored) {
  for (int i = 0; i < 100; ++i) engine->AddText(0, i, 0, "a", kInk, 0, 0);
  ExpectSaid("テキスト登録数オーバー");
  engine->AddText(0, 5, 0, "b", kInk, 0, -1);
  EXPECT_EQ(engine->Texts(0).size(), 100u);
  EXPECT_TRUE(surface.Texts().empty());
}

TEST_F(MarkTest, TheSymbolsEndAt24576) {
  for (int i = 0; i < 24576; ++i) engine->AddSymbol(0, 1, 0, "+", kInk, 0, 0);
  ExpectSaid("シンボル登録数オーバー");
  engine->AddSymbol(0, 1, 0, "+", kInk, 0, 0);
  EXPECT_EQ(engine->Symbols(0).size(), 24576u);
}

TEST_F(MarkTest, AHundredAndFirstNamedLineIsIgnored) {
  for (int i = 0; i < 101; ++i) engine->AddNamedLine(0, i, "a", kInk, 0, 0);
  EXPECT_EQ(engine->NamedLines(0).size(), 100u);
}

// 1000 channels on 1000 pixels, 600 counts on 600: a character is 8 channels wide and 16 counts
// high.
class MarkedGraph : public DrawSpectTest {
 protected:
  MarkedGraph() {
    Show(0, 1001);
    engine->SetYScale(0, kLinear, 600);
    surface.Forget();
  }
  Stroke OnlyText() {
    const auto texts = surface.Texts();
    EXPECT_EQ(texts.size(), 1u);
    return texts.empty() ? Stroke{} : texts[0];
  }
};

TEST_F(MarkedGraph, ATextIsCentredAndStandsOnItsCount) {
  engine->AddText(0, 500, 300, "abcd", kOwn, 12, -1);
  EXPECT_EQ(OnlyText().from, (Point{484, 316}));
  EXPECT_EQ(OnlyText().color, kOwn);
  EXPECT_EQ(OnlyText().font_size, 12);
}

TEST_F(MarkedGraph, ATextWithoutDrawNowWaitsForTheRedraw) {
  engine->AddText(0, 500, 300, "abcd", kOwn, 0, 0);
  EXPECT_TRUE(surface.strokes.empty());
  engine->Redraw(0);
  EXPECT_EQ(OnlyText().font_size, 10);
}

TEST_F(MarkedGraph, ASymbolIsCentredBothWays) {
  engine->AddSymbol(0, 500, 300, "+", kOwn, 0, -1);
  EXPECT_EQ(OnlyText().from, (Point{496, 308}));
}

TEST_F(MarkedGraph, ANamedLineHasItsNameBesideItsTop) {
  engine->AddNamedLine(0, 500, "ab", kOwn, 0, -1);
  EXPECT_EQ(OnlyText().from, (Point{503, 600}));
  ASSERT_EQ(surface.Boxes().size(), 1u);
  EXPECT_EQ(surface.Boxes()[0].from, (Point{500, 0}));
  EXPECT_EQ(surface.Boxes()[0].to, (Point{500, 600}));
}

TEST_F(MarkedGraph, ANameWithoutRoomAtTheRightStandsAtTheLeft) {
  engine->AddNamedLine(0, 981, "ab", kOwn, 0, -1);
  EXPECT_EQ(OnlyText().from, (Point{984, 600}));
  surface.Forget();
  engine->AddNamedLine(0, 982, "ab", kOwn, 0, -1);
  EXPECT_EQ(OnlyText().from, (Point{963, 600}));
}

// Names end 19 channels right of their lines: 510 is under the name of 500, 522 under that of 510
// alone.
TEST_F(MarkedGraph, ALineEndsBelowTheNamesThatItWouldCross) {
  for (const int channel : {510, 700, 500, 522}) {
    engine->AddNamedLine(0, channel, "ab", kOwn, 0, 0);
  }
  engine->Redraw(0);
  const auto texts = surface.Texts();
  ASSERT_EQ(texts.size(), 4u);
  EXPECT_EQ(texts[0].from, (Point{503, 600}));
  EXPECT_EQ(texts[1].from, (Point{513, 584}));  // a row of 16 counts below
  EXPECT_EQ(texts[2].from, (Point{525, 568}));
  EXPECT_EQ(texts[3].from, (Point{703, 600}));
  const auto lines = surface.Boxes();
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[1].to, (Point{510, 584}));
  EXPECT_EQ(lines[2].to, (Point{522, 568}));
}

TEST_F(MarkedGraph, BelowTheLowestRowTheHighestWithRoomIsTaken) {
  for (const int channel : {500, 501, 502, 503, 504, 505, 506, 517, 520}) {
    engine->AddNamedLine(0, channel, "ab", kOwn, 0, 0);
  }
  engine->Redraw(0);
  const auto texts = surface.Texts();
  ASSERT_EQ(texts.size(), 9u);
  EXPECT_EQ(texts[7].from, (Point{520, 488}));  // the eighth row
  EXPECT_EQ(texts[8].from, (Point{523, 600}));  // the first two names have ended
}

TEST_F(MarkedGraph, ANameWithoutRoomInAnyRowStandsInTheHighest) {
  for (int i = 0; i < 9; ++i) engine->AddNamedLine(0, 500, "ab", kOwn, 0, 0);
  engine->Redraw(0);
  const auto texts = surface.Texts();
  ASSERT_EQ(texts.size(), 9u);
  EXPECT_EQ(texts[7].from.y, 488);
  EXPECT_EQ(texts[8].from.y, 600);
}

TEST_F(MarkedGraph, ALineThatIsNotShownTakesNoRoom) {
  engine->AddNamedLine(0, 1002, "ab", kOwn, 0, 0);
  engine->AddNamedLine(0, 1000, "ab", kOwn, 0, 0);
  engine->Redraw(0);
  ASSERT_EQ(surface.Texts().size(), 1u);
  EXPECT_EQ(surface.Texts()[0].from.y, 600);
}

TEST_F(MarkedGraph, TextsStayWithinTheSurface) {
  engine->AddText(0, 1, 590, "abcd", kInk, 0, -1);
  EXPECT_EQ(OnlyText().from, (Point{0, 600}));
  surface.Forget();
  engine->AddText(0, 999, 0, "abcd", kInk, 0, -1);
  EXPECT_EQ(OnlyText().from, (Point{968, 16}));
}

TEST_F(MarkedGraph, TextsOfChannelsThatAreNotShownAreNotDrawn) {
  engine->AddText(0, 1001, 300, "abcd", kInk, 0, -1);
  EXPECT_TRUE(surface.strokes.empty());
}

TEST_F(MarkedGraph, ATextOnAPageStandsOnItsCountToo) {
  engine->SetPrintSettings({kTrue, 1});
  engine->AddText(0, 500, 300, "abcd", kOwn, 0, -1);
  EXPECT_EQ(OnlyText().from, (Point{484, 284}));
}

TEST_F(MarkedGraph, ClearTextsAndSymbolsRedraw) {
  engine->AddText(0, 500, 300, "a", kInk, 0, 0);
  engine->AddSymbol(0, 500, 300, "b", kInk, 0, 0);
  engine->ClearTexts(0);
  EXPECT_EQ(OnlyText().text, "b");
  surface.Forget();
  engine->ClearSymbols(0);
  EXPECT_TRUE(surface.Texts().empty());
  EXPECT_EQ(surface.strokes.size(), 1u);
}

// What moves

class OverlayTest : public MarkedGraph {
 protected:
  std::vector<Stroke> Draw(const Overlay& overlay) {
    frame.Forget();
    engine->DrawOverlay(0, frame, overlay);
    return frame.strokes;
  }
  RecordingSurface frame;
};

TEST_F(OverlayTest, RedrawDrawsNothingThatMovesAndTheOverlayNothingElse) {
  Curve(Flat(10));
  EXPECT_TRUE(Draw({}).empty());
  EXPECT_EQ(frame.right, 1000);
  EXPECT_EQ(frame.top, 600);
  EXPECT_TRUE(surface.strokes.empty());
}

TEST_F(OverlayTest, TheCursorIsALineOverTheWholeHeight) {
  const auto strokes = Draw({.CursorOn = true, .CursorChannel = 250.5, .CursorColor = kOwn});
  ASSERT_EQ(strokes.size(), 1u);
  EXPECT_EQ(strokes[0].from, (Point{250.5, 0}));
  EXPECT_EQ(strokes[0].to, (Point{250.5, 600}));
  EXPECT_EQ(strokes[0].color, kOwn);
}

TEST_F(OverlayTest, TheCrossStandsAtTheCount) {
  const auto strokes =
      Draw({.CursorOn = true, .Form = CursorForm::Cross, .CursorChannel = 250, .CursorCount = 120});
  ASSERT_EQ(strokes.size(), 2u);
  EXPECT_EQ(strokes[0].from.y, 120);
  EXPECT_EQ(strokes[0].to.y, 120);
  EXPECT_EQ(strokes[1].from.x, 250);
}

TEST_F(OverlayTest, ACursorOutsideOfTheViewIsNotDrawn) {
  EXPECT_TRUE(Draw({.CursorOn = true, .CursorChannel = 1000.5}).empty());
}

TEST_F(OverlayTest, TheAreaHasItsEdgesAndABoxBetweenThemInAnyOrder) {
  const auto strokes = Draw({.Area = {true, 300, 200, kOwn}});
  ASSERT_EQ(strokes.size(), 3u);
  EXPECT_EQ(strokes[0].from.x, 300);
  EXPECT_EQ(strokes[1].from.x, 200);
  EXPECT_EQ(strokes[2].from, (Point{200, 0}));
  EXPECT_EQ(strokes[2].to, (Point{300, 600}));
  EXPECT_LT(strokes[2].opacity, 1);
}

TEST_F(OverlayTest, AnAreaWithOneEndHasOneEdge) {
  EXPECT_EQ(Draw({.Area = {true, 300, -1, kOwn}}).size(), 1u);
}

TEST_F(OverlayTest, AnAreaThatIsOffIsNotDrawn) {
  EXPECT_TRUE(Draw({.Area = {false, 300, 400, kOwn}}).empty());
}

TEST_F(OverlayTest, TheRangeMarkIsCutAtTheView) {
  const auto strokes = Draw({.Range = {true, 900, 1200, kOwn}});
  ASSERT_EQ(strokes.size(), 2u);
  EXPECT_EQ(strokes[1].from.x, 900);
  EXPECT_EQ(strokes[1].to.x, 1000);
}

TEST_F(OverlayTest, RegionsLieBelowTheCursor) {
  const std::vector<ChannelRange> regions = {{true, 10, 20, kInk}, {true, 30, 40, kOwn}};
  const auto strokes = Draw({.CursorOn = true, .CursorChannel = 5, .Regions = regions});
  ASSERT_EQ(strokes.size(), 7u);
  EXPECT_EQ(strokes[2].color, kInk);
  EXPECT_EQ(strokes[5].color, kOwn);
  EXPECT_EQ(strokes[6].from.x, 5);
}

}  // namespace
}  // namespace dorvane
