#include "forms/Controls.h"

#include <gmock/gmock.h>

#include "forms/ColorPatch.h"
#include "forms/FormFixture.h"
#include "forms/Grid.h"
#include "forms/Menus.h"
#include "forms/PictureBox.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

class ControlsTest : public testing::Test {
 protected:
  // Counts what an event tells.
  template <typename... Args>
  void Count(Event<Args...>& event) {
    event.Connect([this](Args...) { ++events; });
  }

  ControlList controls;
  int events = 0;
};

TEST_F(ControlsTest, AFormFindsItsControlsByName) {
  Button first(controls, "cmdOk", "O K");
  Button second(controls, "cmdCan", "Cancel");
  EXPECT_EQ(controls.Find("cmdCan"), &second);
  EXPECT_EQ(controls.Find("cmdcan"), nullptr);
  EXPECT_THAT(controls.All(), ElementsAre(&first, &second));
}

TEST_F(ControlsTest, ADifferentValueFiresAtOnceAnEqualOneDoesNot) {
  CheckBox box(controls, "chkArea");
  Count(box.Click);
  box.SetChecked(true);
  box.SetChecked(true);
  EXPECT_EQ(events, 1);
}

TEST_F(ControlsTest, AHandlerSeesTheNewValue) {
  TextBox box(controls, "txtInput");
  std::string seen;
  box.Change.Connect([&] { seen = box.Text(); });
  box.SetText("abc");
  EXPECT_EQ(seen, "abc");
}

TEST_F(ControlsTest, HandlersRunInTheOrderOfTheirConnection) {
  Button button(controls, "cmdOk");
  std::string order;
  button.Click.Connect([&] {
    order += "a";
    button.Click.Connect([&] { order += "c"; });
  });
  button.Click.Connect([&] { order += "b"; });
  button.Press();
  EXPECT_EQ(order, "ab");
}

TEST_F(ControlsTest, APatchTellsThatItHasAnotherColour) {
  ColorPatch patch(controls, "cmdColor");
  int shown = 0;
  patch.Shown.Connect([&shown] { ++shown; });
  EXPECT_FALSE(patch.Fill().has_value());
  patch.SetFill(Rgb(1, 2, 3));
  EXPECT_EQ(patch.Fill(), Rgb(1, 2, 3));
  EXPECT_EQ(patch.Tip(), "Red 1, green 2, blue 3");
  EXPECT_GT(shown, 0);
  shown = 0;
  patch.SetFill(Rgb(1, 2, 3));
  EXPECT_EQ(shown, 0);
  patch.SetFill({});
  EXPECT_EQ(patch.Tip(), "");
}

TEST_F(ControlsTest, ValidationRefusesToLetTheFocusGo) {
  TextBox box(controls, "txtInput");
  Count(box.Left);
  box.Validate = [&] { return box.Text() == "1"; };
  box.SetText("x");
  EXPECT_FALSE(box.Leave());
  EXPECT_EQ(events, 0);
  box.SetText("1");
  EXPECT_TRUE(box.Leave());
  EXPECT_EQ(events, 1);
}

TEST_F(ControlsTest, ANumberBoxShowsItsPictureAndIgnoresWhatIsNoNumber) {
  NumberBox box(controls, "ImNumber1", "####0.00");
  box.Type("2.345");
  EXPECT_EQ(box.Text(), "2.35");
  EXPECT_EQ(box.Value(), 2.345);
  Count(box.Change);
  box.Type("abc");
  EXPECT_EQ(box.Value(), 2.345);
  EXPECT_EQ(events, 0);
}

TEST_F(ControlsTest, ANumberBoxKeepsTheWholeNumberWhenItsOwnTextIsTyped) {
  NumberBox box(controls, "ImNumber1", "####0.00");
  box.SetValue(2.345);
  Count(box.Change);
  box.Type("2.35");
  EXPECT_EQ(box.Value(), 2.345);
  EXPECT_EQ(events, 0);
  box.Type("2.350");
  EXPECT_EQ(box.Value(), 2.35);
}

TEST_F(ControlsTest, ANumberBoxWithSectionsTakesWhatItShows) {
  NumberBox box(controls, "imnInV", "#0.000;(#0.000);Nothing");
  EXPECT_EQ(box.Text(), "Nothing");
  box.Type("(2.5)");
  EXPECT_EQ(box.Value(), -2.5);
  box.Type("Nothing");
  EXPECT_EQ(box.Value(), 0);
}

TEST_F(ControlsTest, AnOptionIsToldByItsIndex) {
  OptionGroup group(controls, "optEGC", {"Default", "This File"});
  int chosen = -1;
  group.Click.Connect([&](int index) { chosen = index; });
  group.SetIndex(1);
  EXPECT_EQ(chosen, 1);
  group.SetIndex(2);
  EXPECT_EQ(group.Index(), 1);
}

TEST_F(ControlsTest, ANewListKeepsTheIndexThatStillExists) {
  ComboBox box(controls, "cboUnitX");
  box.SetItems({"Ch", "Kev", "Ev"});
  box.SetIndex(2);
  box.SetItems({"a", "b", "c", "d"});
  EXPECT_EQ(box.Index(), 2);
  EXPECT_EQ(box.Text(), "c");
  box.SetItems({"a"});
  EXPECT_EQ(box.Index(), -1);
  EXPECT_EQ(box.Text(), "");
}

TEST_F(ControlsTest, AListOfSeveralTellsAllThatAreSelectedInTheirOrder) {
  ListBox list(controls, "filFiles");
  list.SetItems({"a", "b", "c"});
  list.SetSeveral(true);
  Count(list.Click);
  list.SetSelected({2, 0, 2, 7, -1});
  EXPECT_THAT(list.Selected(), ElementsAre(0, 2));
  EXPECT_EQ(list.Index(), 0);
  list.SetSelected({0, 2});
  EXPECT_EQ(events, 1);
  list.SetSelected({0, 1});
  EXPECT_EQ(events, 2);
}

TEST_F(ControlsTest, AnIndexSelectsThatItemOfAListOfSeveralAlone) {
  ListBox list(controls, "filFiles");
  list.SetItems({"a", "b", "c"});
  list.SetSeveral(true);
  list.SetSelected({0, 2});
  list.SetIndex(3);
  EXPECT_THAT(list.Selected(), ElementsAre(0, 2));
  list.SetIndex(1);
  EXPECT_THAT(list.Selected(), ElementsAre(1));
  list.SetIndex(-1);
  EXPECT_THAT(list.Selected(), ElementsAre());
}

TEST_F(ControlsTest, AListOfOneSelectsTheFirstAskedFor) {
  ListBox list(controls, "filFiles");
  list.SetItems({"a", "b", "c"});
  list.SetSelected({2, 1});
  EXPECT_EQ(list.Index(), 1);
  EXPECT_THAT(list.Selected(), ElementsAre(1));
  list.SetSeveral(true);
  EXPECT_THAT(list.Selected(), ElementsAre(1));
  list.SetSelected({1, 2});
  list.SetSeveral(false);
  EXPECT_THAT(list.Selected(), ElementsAre(1));
}

TEST_F(ControlsTest, ANewListOfSeveralKeepsWhatStillExists) {
  ListBox list(controls, "filFiles");
  list.SetItems({"a", "b", "c"});
  list.SetSeveral(true);
  list.SetSelected({1, 2});
  list.SetItems({"x", "y"});
  EXPECT_THAT(list.Selected(), ElementsAre(1));
  list.SetItems({});
  EXPECT_THAT(list.Selected(), ElementsAre());
  EXPECT_EQ(list.Index(), -1);
}

TEST_F(ControlsTest, AScrollBarStaysInItsRange) {
  ScrollBar bar(controls, "hsbStartX");
  bar.SetRange(0, 4096);
  Count(bar.Change);
  bar.SetValue(5000);
  EXPECT_EQ(bar.Value(), 4096);
  bar.SetRange(0, 100);
  EXPECT_EQ(bar.Value(), 100);
  EXPECT_EQ(events, 2);
}

TEST_F(ControlsTest, EveryPressOfAnUpDownButtonIsTold) {
  UpDown button(controls, "updCursorX");
  Count(button.UpClick);
  button.Up();
  button.Up();
  EXPECT_EQ(events, 2);
}

TEST_F(ControlsTest, ATimerThatIsOffDoesNotTick) {
  Timer timer(controls, "timCursor", 50);
  Count(timer.Ticked);
  timer.Tick();
  EXPECT_EQ(events, 0);
  timer.SetEnabled(true);
  timer.Tick();
  EXPECT_EQ(events, 1);
}

TEST_F(ControlsTest, RowsAndColumnsOfAGridCountFromOne) {
  Grid grid(controls, "sprGraphSel", {"Disp", "Win"});
  grid.SetMaxRows(2);
  grid.SetText(2, 2, "x");
  EXPECT_EQ(grid.Text(2, 2), "x");
  EXPECT_THROW(grid.Text(0, 1), Fault);
  EXPECT_THROW(grid.Text(3, 1), Fault);
  EXPECT_THROW(grid.Text(1, 3), Fault);
}

TEST_F(ControlsTest, ACellOutsideOfTheGridCannotBePressed) {
  Grid grid(controls, "sprGraphSel", {"Disp"});
  grid.SetMaxRows(1);
  Count(grid.Click);
  grid.PressCell(2, 1);
  EXPECT_EQ(events, 0);
  grid.PressCell(1, 1);
  EXPECT_EQ(events, 1);
}

TEST_F(ControlsTest, OnlyACheckCellTakesAMark) {
  Grid grid(controls, "sprGraphSel", {"Disp", "Win"});
  grid.SetMaxRows(1);
  grid.SetCell(1, 1, {.is_check = true});
  Count(grid.Checked);
  grid.CheckCell(1, 2, true);
  EXPECT_EQ(events, 0);
  grid.CheckCell(1, 1, true);
  EXPECT_TRUE(grid.Cell(1, 1).checked);
  EXPECT_EQ(events, 1);
}

TEST_F(ControlsTest, ATextCanBeTypedOnlyWhereItsColumnAllowsIt) {
  Grid grid(controls, "vaSpread1", {"Channel", "Energy(KeV)"});
  grid.SetMaxRows(1);
  grid.SetEditableColumn(2, true);
  Count(grid.Edited);
  grid.EditCell(1, 1, "5");
  grid.EditCell(1, 2, "14.4");
  EXPECT_EQ(grid.Text(1, 1), "");
  EXPECT_EQ(grid.Text(1, 2), "14.4");
  EXPECT_EQ(events, 1);
}

TEST_F(ControlsTest, NewRowsAreEmptyAndSurplusOnesGo) {
  Grid grid(controls, "sprRoiInf", {"Graph"});
  grid.SetMaxRows(2);
  grid.SetText(2, 1, "x");
  grid.SetMaxRows(1);
  grid.SetMaxRows(2);
  EXPECT_EQ(grid.Text(2, 1), "");
}

TEST_F(ControlsTest, RowsSetAtOnceAreToldOnce) {
  Grid grid(controls, "sprPeakInf3", {"D(Obs)", "Use"});
  Count(grid.Shown);
  const std::vector<GridRow> rows{{"1", {{.text = "2.5"}, {.is_check = true}}}, {"2", {{}, {}}}};
  grid.SetRows(rows);
  EXPECT_EQ(events, 1);
  EXPECT_EQ(grid.RowTitle(2), "2");
  EXPECT_EQ(grid.Text(1, 1), "2.5");
  grid.SetRows(rows);
  EXPECT_EQ(events, 1);
}

TEST_F(ControlsTest, ActiveRowStaysWithinTheRowsSet) {
  Grid grid(controls, "sprPeakInf3", {"D(Obs)"});
  grid.SetMaxRows(3);
  grid.SetActiveRow(3);
  grid.SetRows({{"1", {{}}}, {"2", {{}}}});
  EXPECT_EQ(grid.ActiveRow(), 2);
  grid.SetRows({});
  EXPECT_EQ(grid.ActiveRow(), 1);
}

TEST_F(ControlsTest, RowWithoutACellForEveryColumnIsRefused) {
  Grid grid(controls, "sprPeakInf3", {"D(Obs)", "Use"});
  EXPECT_THROW(grid.SetRows({{"1", {{}}}}), Fault);
  EXPECT_EQ(grid.MaxRows(), 0);
}

TEST_F(ControlsTest, AToolButtonIsKnownByItsKeyExactly) {
  ToolBar bar(controls, "tlbrFile", {{"LoadData"}, {"SaveData"}});
  bar.SetButtonEnabled("SaveData", false);
  bar.SetButtonPressed("LoadData", true);
  EXPECT_TRUE(bar.ButtonEnabled("LoadData"));
  EXPECT_FALSE(bar.ButtonEnabled("SaveData"));
  EXPECT_TRUE(bar.ButtonPressed("LoadData"));
  EXPECT_FALSE(bar.ButtonEnabled("loaddata"));
  bar.SetButtonEnabled("none", true);
}

TEST_F(ControlsTest, AMenuEntryIsCheckableOnceItHasACheckMark) {
  MenuItem item(controls, "mnuExpressFit", "ExpressFitting");
  Count(item.Click);
  EXPECT_FALSE(item.Checkable());
  item.SetChecked(false);
  EXPECT_TRUE(item.Checkable());
  item.SetChecked(true);
  EXPECT_EQ(events, 0);
  item.Choose();
  EXPECT_EQ(events, 1);
}

class PlainForm : public Form {
 public:
  explicit PlainForm(FormHost& host) : Form(host, "frmInput", "Input") {
    cmdOk.Click.Connect([this] { Hide(); });
  }
  Button cmdOk{controls_, "cmdOk", "OK"};
};

TEST(FormTest, AModalFormReturnsWhenItIsHidden) {
  ScriptedFormHost host;
  PlainForm form(host);
  host.ExpectModal([&](Form&) { form.cmdOk.Press(); });
  form.ShowModal();
  EXPECT_FALSE(form.Visible());
  EXPECT_THAT(host.Shown(), ElementsAre("frmInput"));
}

TEST(FormTest, ClosingAFormHidesIt) {
  ScriptedFormHost host;
  PlainForm form(host);
  form.Show();
  EXPECT_TRUE(form.Visible());
  form.QueryClose();
  EXPECT_FALSE(form.Visible());
}

}  // namespace
}  // namespace dorvane
