#include "qt/binding/ListWidgets.h"

#include <QComboBox>
#include <QListWidget>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>

#include "BindingTest.h"

namespace dorvane {
namespace {

using ListWidgets = BindingTest;

TEST_F(ListWidgets, OptionsFollowTheirGroup) {
  form.optEGC.SetIndex(1);
  EXPECT_FALSE(Find<QRadioButton>("optEGC_0")->isChecked());
  EXPECT_TRUE(Find<QRadioButton>("optEGC_1")->isChecked());
  form.optEGC.SetIndex(-1);
  EXPECT_FALSE(Find<QRadioButton>("optEGC_1")->isChecked());
}

TEST_F(ListWidgets, OptionIsChosenByTheUserOnce) {
  const auto clicks = Count(form.optEGC.Click);
  Find<QRadioButton>("optEGC_1")->click();
  EXPECT_EQ(form.optEGC.Index(), 1);
  EXPECT_EQ(*clicks, 1);
}

TEST_F(ListWidgets, OptionThatIsOffTakesNothing) {
  form.optEGC.SetOptionEnabled(1, false);
  Find<QRadioButton>("optEGC_1")->click();
  EXPECT_EQ(form.optEGC.Index(), 0);
}

TEST_F(ListWidgets, OptionThatIsRefusedShowsSo) {
  form.optEGC.Click.Connect([this](int) { form.optEGC.SetIndex(0); });
  Find<QRadioButton>("optEGC_1")->click();
  EXPECT_TRUE(Find<QRadioButton>("optEGC_0")->isChecked());
  EXPECT_FALSE(Find<QRadioButton>("optEGC_1")->isChecked());
}

TEST_F(ListWidgets, ComboFollowsItemsAndIndex) {
  const auto clicks = Count(form.cboSmooth.Click);
  form.cboSmooth.SetItems({"a", "b", "c", "d"});
  form.cboSmooth.SetIndex(3);
  EXPECT_EQ(Find<QComboBox>("cboSmooth")->currentText(), "d");
  EXPECT_EQ(*clicks, 1);
  form.cboSmooth.SetIndex(-1);
  EXPECT_EQ(Find<QComboBox>("cboSmooth")->currentIndex(), -1);
}

TEST_F(ListWidgets, ComboIsChosenByTheUserOnce) {
  const auto clicks = Count(form.cboSmooth.Click);
  QTest::keyClick(Of(form.cboSmooth), Qt::Key_Down);
  EXPECT_EQ(form.cboSmooth.Index(), 1);
  EXPECT_EQ(*clicks, 1);
}

TEST_F(ListWidgets, ListFollowsItemsAndIndexWithoutAnEventOfItsOwn) {
  const auto clicks = Count(form.lstFiles.Click);
  form.lstFiles.SetItems({"x", "y"});
  EXPECT_EQ(Find<QListWidget>("lstFiles")->count(), 2);
  EXPECT_EQ(*clicks, 0);
  form.lstFiles.SetIndex(1);
  EXPECT_EQ(Find<QListWidget>("lstFiles")->currentRow(), 1);
  EXPECT_EQ(*clicks, 1);
}

TEST_F(ListWidgets, ListIsChosenAndOpenedByTheUser) {
  form.tabPages.SetIndex(1);
  const auto clicks = Count(form.lstFiles.Click);
  const auto opened = Count(form.lstFiles.DblClick);
  auto* list = Find<QListWidget>("lstFiles");
  const QPoint second = list->visualItemRect(list->item(1)).center();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, second);
  EXPECT_EQ(form.lstFiles.Index(), 1);
  EXPECT_EQ(*clicks, 1);
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, second);
  EXPECT_EQ(*opened, 1);
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_EQ(*opened, 2);
}

TEST_F(ListWidgets, ListOfSeveralFollows) {
  form.lstFiles.SetSeveral(true);
  form.lstFiles.SetSelected({0, 2});
  auto* list = Find<QListWidget>("lstFiles");
  EXPECT_TRUE(list->item(0)->isSelected());
  EXPECT_FALSE(list->item(1)->isSelected());
  EXPECT_TRUE(list->item(2)->isSelected());
}

TEST_F(ListWidgets, SeveralAreChosenByTheUserWithControlAndShift) {
  form.tabPages.SetIndex(1);
  form.lstFiles.SetSeveral(true);
  const auto clicks = Count(form.lstFiles.Click);
  auto* list = Find<QListWidget>("lstFiles");
  const auto click = [&](int row, Qt::KeyboardModifiers keys) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, keys,
                      list->visualItemRect(list->item(row)).center());
  };
  click(2, {});
  click(0, Qt::ControlModifier);
  EXPECT_EQ(form.lstFiles.Selected(), (std::vector{0, 2}));
  EXPECT_EQ(*clicks, 2);
  click(1, {});
  EXPECT_EQ(form.lstFiles.Selected(), (std::vector{1}));
  QTest::keyClick(list, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(form.lstFiles.Selected(), (std::vector{1, 2}));
}

TEST_F(ListWidgets, TabsFollowAndAreChosen) {
  const auto clicks = Count(form.tabPages.Click);
  form.tabPages.SetIndex(1);
  auto* tabs = Find<QTabWidget>("tabPages");
  EXPECT_EQ(tabs->currentIndex(), 1);
  EXPECT_EQ(*clicks, 1);
  QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(0).center());
  EXPECT_EQ(form.tabPages.Index(), 0);
  EXPECT_EQ(*clicks, 2);
}

}  // namespace
}  // namespace dorvane
