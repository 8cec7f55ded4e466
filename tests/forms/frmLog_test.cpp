#include "forms/frmLog.h"

#include <gtest/gtest.h>

#include "forms/FormFixture.h"

namespace dorvane {
namespace {

class frmLogTest : public testing::Test {
 protected:
  // Puts the lines "first".."last", each its number.
  void Put(int first, int last) {
    for (int i = first; i <= last; ++i) form.PutLog(std::to_string(i));
  }
  static std::string Lines(int first, int last) {
    std::string text;
    for (int i = first; i <= last; ++i) text += std::to_string(i) + "\r\n";
    return text;
  }
  const std::string& Text() const { return form.txtMessage.Text(); }

  ScriptedFormHost host;
  frmLog form{host};
};

TEST_F(frmLogTest, EachLineEndsInCrLf) {
  form.PutLog("CFDQR2");
  form.PutLog("");
  EXPECT_EQ(Text(), "CFDQR2\r\n\r\n");
}

TEST_F(frmLogTest, TwoHundredLinesAreKept) {
  Put(1, 200);
  EXPECT_EQ(Text(), Lines(1, 200));
}

TEST_F(frmLogTest, After201LinesTheTextHoldsLines2To201) {
  Put(1, 201);
  EXPECT_EQ(Text(), Lines(2, 201));
}

TEST_F(frmLogTest, TheRingWrapsBefore200ThoughItHasOnePlaceMoreAsMeant) {
  Put(1, 1001);
  EXPECT_EQ(Text(), Lines(802, 1001));
}

TEST_F(frmLogTest, AfterClearOnePutShowsThatLineAlone) {
  Put(1, 250);
  form.cmdClear.Press();
  EXPECT_EQ(Text(), "");
  form.PutLog("new");
  EXPECT_EQ(Text(), "new\r\n");
}

TEST_F(frmLogTest, AClearedRingFillsUpAgain) {
  Put(1, 250);
  form.cmdClear.Press();
  Put(1, 201);
  EXPECT_EQ(Text(), Lines(2, 201));
}

TEST_F(frmLogTest, DispLogShowsTheLinesAgain) {
  Put(1, 3);
  form.txtMessage.SetText("");
  form.DispLog();
  EXPECT_EQ(Text(), Lines(1, 3));
}

TEST_F(frmLogTest, HideAndClosingKeepTheLines) {
  form.Show();
  Put(1, 3);
  form.cmdHide.Press();
  EXPECT_FALSE(form.Visible());
  form.Show();
  form.QueryClose();
  EXPECT_FALSE(form.Visible());
  EXPECT_EQ(Text(), Lines(1, 3));
}

TEST_F(frmLogTest, LinesArriveThroughTheLogPortWhileHidden) {
  LogSink& log = form;
  log.PutLog("message");
  EXPECT_FALSE(form.Visible());
  EXPECT_EQ(Text(), "message\r\n");
}

TEST_F(frmLogTest, TheTextIsOnlyRead) {
  EXPECT_TRUE(form.txtMessage.ReadOnly());
  EXPECT_TRUE(form.txtMessage.SeveralLines());
  EXPECT_EQ(form.Caption(), "Log");
  EXPECT_EQ(form.cmdClear.Caption(), "Clear");
  EXPECT_EQ(form.cmdHide.Caption(), "Hide");
}

}  // namespace
}  // namespace dorvane
