#include "qt/binding/TextWidgets.h"

#include <QLineEdit>
#include <QPlainTextEdit>

#include "BindingTest.h"

namespace dorvane {
namespace {

using TextWidgets = BindingTest;

TEST_F(TextWidgets, TextShows) {
  form.txtName.SetText("Al2O3 コランダム");
  EXPECT_EQ(Find<QLineEdit>("txtName")->text(), "Al2O3 コランダム");
}

TEST_F(TextWidgets, EachTypedLetterIsAChange) {
  const auto changes = Count(form.txtName.Change);
  QTest::keyClicks(Of(form.txtName), "MgO");
  EXPECT_EQ(form.txtName.Text(), "MgO");
  EXPECT_EQ(*changes, 3);
}

TEST_F(TextWidgets, HandlerMayCorrectWhatIsTyped) {
  form.txtName.Change.Connect([this] {
    if (form.txtName.Text().size() > 2) form.txtName.SetText("Mg");
  });
  QTest::keyClicks(Of(form.txtName), "MgO");
  EXPECT_EQ(Find<QLineEdit>("txtName")->text(), "Mg");
}

TEST_F(TextWidgets, TypingKeepsTheTextCursor) {
  form.txtName.SetText("AB");
  QTest::keyClick(Of(form.txtName), Qt::Key_Home);
  QTest::keyClicks(Of(form.txtName), "12");
  EXPECT_EQ(form.txtName.Text(), "12AB");
}

TEST_F(TextWidgets, EnterIsAnEventAndPressesTheDefaultButton) {
  const auto enters = Count(form.txtName.EnterPressed);
  const auto presses = Count(form.cmdOk.Click);
  Of(form.txtName)->setFocus();
  QTest::keyClick(Of(form.txtName), Qt::Key_Return);
  EXPECT_EQ(*enters, 1);
  EXPECT_EQ(*presses, 1);
}

TEST_F(TextWidgets, ReadOnlyTextTakesNoTyping) {
  form.txtName.SetReadOnly(true);
  QTest::keyClicks(Of(form.txtName), "x");
  EXPECT_EQ(form.txtName.Text(), "");
}

TEST_F(TextWidgets, LinesEndInCarriageReturnAndLineFeed) {
  const auto changes = Count(form.txtNote.Change);
  form.txtNote.SetText("one\r\ntwo");
  auto* note = Find<QPlainTextEdit>("txtNote");
  EXPECT_EQ(note->toPlainText(), "one\ntwo");
  EXPECT_EQ(*changes, 1);
  note->moveCursor(QTextCursor::End);
  QTest::keyClick(note, Qt::Key_Return);
  EXPECT_EQ(form.txtNote.Text(), "one\r\ntwo\r\n");
}

TEST_F(TextWidgets, LeavingIsAnEvent) {
  const auto left = Count(form.txtName.Left);
  Of(form.txtName)->setFocus();
  QTest::keyClick(Of(form.txtName), Qt::Key_Tab);
  EXPECT_EQ(*left, 1);
  EXPECT_FALSE(Of(form.txtName)->hasFocus());
}

TEST_F(TextWidgets, RefusedTextKeepsTheFocus) {
  int asked = 0;
  form.txtName.Validate = [&asked] { return ++asked > 1; };
  Of(form.txtName)->setFocus();
  QTest::keyClick(Of(form.txtName), Qt::Key_Tab);
  EXPECT_TRUE(Of(form.txtName)->hasFocus());
  QTest::keyClick(Of(form.txtName), Qt::Key_Tab);
  EXPECT_FALSE(Of(form.txtName)->hasFocus());
  EXPECT_EQ(asked, 2);
}

TEST_F(TextWidgets, RefusedTextKeepsTheFocusFromABoxThatWouldRefuseToo) {
  form.txtName.Validate = [] { return false; };
  form.txtNote.Validate = [] { return false; };
  Of(form.txtName)->setFocus();
  Of(form.txtNote)->setFocus();
  EXPECT_TRUE(Of(form.txtName)->hasFocus());
}

TEST_F(TextWidgets, RefusedTextKeepsAClickFromCounting) {
  form.txtName.Validate = [] { return false; };
  const auto presses = Count(form.cmdOk.Click);
  Of(form.txtName)->setFocus();
  QTest::mouseClick(Of(form.cmdOk), Qt::LeftButton);
  EXPECT_EQ(*presses, 0);
  EXPECT_TRUE(Of(form.txtName)->hasFocus());
  form.txtName.Validate = nullptr;
  QTest::mouseClick(Of(form.cmdOk), Qt::LeftButton);
  EXPECT_EQ(*presses, 1);
}

TEST_F(TextWidgets, RefusedTextKeepsEnterAndMnemonicsFromCounting) {
  form.txtName.Validate = [] { return false; };
  const auto presses = Count(form.cmdOk.Click);
  Of(form.txtName)->setFocus();
  QTest::keyClick(Of(form.txtName), Qt::Key_Return);
  QTest::keyClick(&Window(), Qt::Key_O, Qt::AltModifier);
  QTest::qWait(150);  // a mnemonic presses the button for a while
  EXPECT_EQ(*presses, 0);
  EXPECT_TRUE(Of(form.txtName)->hasFocus());
}

TEST_F(TextWidgets, HiddenWindowIsNotALeaving) {
  const auto left = Count(form.txtName.Left);
  Of(form.txtName)->setFocus();
  form.Hide();
  EXPECT_EQ(*left, 0);
}

TEST_F(TextWidgets, NumberShowsInItsPicture) {
  form.imnAngle.SetValue(6.5);
  EXPECT_EQ(Find<QLineEdit>("imnAngle")->text(), "6.500");
  form.imnAngle.SetPicture("##0.0");
  EXPECT_EQ(Find<QLineEdit>("imnAngle")->text(), "6.5");
}

TEST_F(TextWidgets, TypedNumberCountsFromEnterOn) {
  const auto changes = Count(form.imnAngle.Change);
  TypeOver(Of(form.imnAngle), "12.25");
  EXPECT_EQ(*changes, 0);
  QTest::keyClick(Of(form.imnAngle), Qt::Key_Return);
  EXPECT_EQ(form.imnAngle.Value(), 12.25);
  EXPECT_EQ(*changes, 1);
  EXPECT_EQ(Find<QLineEdit>("imnAngle")->text(), "12.250");
}

TEST_F(TextWidgets, TypedNumberCountsWhenTheFocusGoes) {
  TypeOver(Of(form.imnAngle), "3");
  QTest::keyClick(Of(form.imnAngle), Qt::Key_Tab);
  EXPECT_EQ(form.imnAngle.Value(), 3);
}

TEST_F(TextWidgets, ButtonFindsTheNumberThatIsTyped) {
  double seen = 0;
  form.cmdOk.Click.Connect([&] { seen = form.imnAngle.Value(); });
  TypeOver(Of(form.imnAngle), "7");
  QTest::mouseClick(Of(form.cmdOk), Qt::LeftButton);
  EXPECT_EQ(seen, 7);
}

TEST_F(TextWidgets, NoNumberGivesTheOldOneBack) {
  const auto changes = Count(form.imnAngle.Change);
  form.imnAngle.SetValue(2);
  TypeOver(Of(form.imnAngle), "two");
  QTest::keyClick(Of(form.imnAngle), Qt::Key_Return);
  EXPECT_EQ(Find<QLineEdit>("imnAngle")->text(), "2.000");
  EXPECT_EQ(*changes, 1);
}

TEST_F(TextWidgets, EscapeTakesATypedNumberBack) {
  form.imnAngle.SetValue(2);
  const auto changes = Count(form.imnAngle.Change);
  TypeOver(Of(form.imnAngle), "45");
  QTest::keyClick(Of(form.imnAngle), Qt::Key_Escape);
  EXPECT_EQ(Find<QLineEdit>("imnAngle")->text(), "2.000");
  Of(form.cmdOk)->setFocus();
  EXPECT_EQ(*changes, 0);
}

TEST_F(TextWidgets, HidingTheWindowEndsTheEditOfTheFocusedBox) {
  TypeOver(Of(form.imnAngle), "45");
  form.Hide();
  EXPECT_EQ(form.imnAngle.Value(), 45);
}

// The window was not the active one, so that the box has never been left.
TEST_F(TextWidgets, NumberThatWasNeverHandedOverIsGoneTheNextTime) {
  form.imnAngle.SetValue(2);
  auto* edit = Find<QLineEdit>("imnAngle");
  Of(form.cmdOk)->setFocus();
  edit->selectAll();
  QTest::keyClicks(edit, "45");
  form.Hide();
  form.Show();
  EXPECT_EQ(edit->text(), "2.000");
  EXPECT_EQ(form.imnAngle.Value(), 2);
}

TEST_F(TextWidgets, DraftOutlivesAChangeThatIsNotOfTheValue) {
  TypeOver(Of(form.imnAngle), "45");
  form.imnAngle.SetTip("2-theta");
  EXPECT_EQ(Find<QLineEdit>("imnAngle")->text(), "45");
  form.imnAngle.SetValue(9);
  EXPECT_EQ(Find<QLineEdit>("imnAngle")->text(), "9.000");
}

}  // namespace
}  // namespace dorvane
