#include <gmock/gmock.h>

#include <filesystem>
#include <map>

#include "forms/MainFormFixture.h"
#include "forms/MenuTable.h"
#include "program/View.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The letter behind the "&" in lower case; 0 where a caption has none.
char MnemonicOf(std::string_view caption) {
  const auto mark = caption.find('&');
  if (mark == std::string_view::npos) return 0;
  const char letter = caption.at(mark + 1);
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

// The table of the menus.

TEST(MenuTable, NoTwoEntriesOfAMenuShareAMnemonic) {
  std::map<std::pair<std::string_view, char>, std::string_view> taken;
  for (const MenuRow& row : MenuTable()) {
    const char letter = MnemonicOf(row.caption);
    if (letter == 0) continue;
    const auto [first, alone] = taken.try_emplace({row.parent, letter}, row.name);
    EXPECT_TRUE(alone) << first->second << " and " << row.name;
  }
}

TEST(MenuTable, EveryEntryButTheUnitsHasAMnemonic) {
  for (const MenuRow& row : MenuTable()) {
    if (row.parent != "mnuUnit") {
      EXPECT_NE(MnemonicOf(row.caption), 0) << row.name;
    }
  }
}

TEST(MenuTable, LinesPartTheMenusIntoTheirGroups) {
  std::vector<std::string_view> starts;
  for (const MenuRow& row : MenuTable()) {
    if (row.separated) starts.push_back(row.name);
  }
  EXPECT_THAT(starts, ElementsAre("mnuCloseGraph", "mnuProperty", "mnuExit",       // File
                                  "mnuCons", "mnuSetCons",                         // Calc
                                  "mnuAutoFit", "mnuExpressFit", "mnuPeakDelete",  // Peak
                                  "mnuPeakJumpB", "mnuPeakReport",                 //
                                  "mnuRoiStart", "mnuRoiJumpB",                    // Regions
                                  "mnuWider", "mnuLine",                           // View
                                  "mnuWinType_0", "mnuSelGraph",                   // Window
                                  "mnuVersion"));                                  // Help
}

TEST(MenuTable, NoMenuStartsWithALine) {
  std::map<std::string_view, int> entries;
  for (const MenuRow& row : MenuTable()) {
    if (entries[row.parent]++ == 0) {
      EXPECT_FALSE(row.separated) << row.name;
    }
  }
}

TEST(MenuTable, AnEntryWithoutATipShowsItsCaptionWithoutMarks) {
  const MenuRow dialog{"mnuA", "S&ettings...", "mnuFile", "", "", "", nullptr};
  EXPECT_EQ(TipOf(dialog), "Settings");
  const MenuRow version{"mnuB", "Dorvane &Ver 1.2004.01.05", "mnuFile", "", "", "", nullptr};
  EXPECT_EQ(TipOf(version), "Dorvane Ver 1.2004.01.05");
}

class MainMenusTest : public MainFormTest {};

TEST_F(MainMenusTest, TheControlsHaveTheLinesOfTheTable) {
  EXPECT_TRUE(Menu("mnuExit").Separated());
  EXPECT_FALSE(Menu("mnuLoad").Separated());
}

TEST_F(MainMenusTest, AnAmpersandInATitleStandsForItself) {
  ShowSpectrum("Al&Fe.npd");
  EXPECT_EQ(Menu("mnuCloseGraph").Caption(), "&Close Graph(Al&&Fe.npd)");
}

// Units.

TEST_F(MainMenusTest, TheUnitsAreThoseOfTheirBoxInItsSpelling) {
  EXPECT_EQ(Menu("mnuUnit").Parent(), &Menu("mnuView"));
  EXPECT_EQ(Menu("mnuUnit_1").Caption(), "Kev");
  const std::vector<std::string>& box = form.scale.cboUnitX.Items();
  ASSERT_EQ(box.size(), 7u);
  for (std::size_t unit = 0; unit < box.size(); ++unit) {
    const MenuItem& entry = Menu("mnuUnit_" + std::to_string(unit));
    EXPECT_EQ(entry.Caption(), box[unit]);
    EXPECT_EQ(entry.Parent(), &Menu("mnuUnit"));
    EXPECT_TRUE(entry.Enabled());
  }
}

TEST_F(MainMenusTest, ChoosingAUnitShowsItInTheAxisAndInTheBox) {
  ShowSpectrum();
  for (int unit = 6; unit >= 0; --unit) {
    Menu("mnuUnit_" + std::to_string(unit)).Choose();
    EXPECT_EQ(view.DispUnit, unit);
    EXPECT_EQ(form.scale.cboUnitX.Index(), unit);
  }
}

TEST_F(MainMenusTest, TheCurrentUnitAloneIsChecked) {
  const auto checked = [this] {
    std::vector<int> units;
    for (int unit = 0; unit < 7; ++unit) {
      if (Menu("mnuUnit_" + std::to_string(unit)).Checked()) units.push_back(unit);
    }
    return units;
  };
  EXPECT_THAT(checked(), ElementsAre(view.DispUnit));
  SetDispUnit(program, 3);
  EXPECT_THAT(checked(), ElementsAre(3));
  Menu("mnuUnit_1").Choose();
  EXPECT_THAT(checked(), ElementsAre(1));
}

// Recent files.

class RecentMenuTest : public MainFormTest {
 protected:
  std::vector<std::string> Entries() {
    std::vector<std::string> captions;
    for (int i = 0; i < form.recent_menu.mnuRecent.Size(); ++i) {
      const MenuItem& entry = form.recent_menu.mnuRecent[i];
      if (entry.Visible()) captions.push_back(entry.Caption());
    }
    return captions;
  }
  // A native file that is not in the list.
  std::string NativeFile(const std::string& name) {
    const std::string path = folder.Path(name);
    OpenFiles(1);
    std::filesystem::rename(folder.Path("a.xbm"), path);
    form.recent.Remove(folder.Path("a.xbm"));
    return path;
  }
};

TEST_F(RecentMenuTest, WithoutARecentFileTheMenuIsOffAndEmpty) {
  EXPECT_FALSE(Menu("mnuRecent").Enabled());
  EXPECT_EQ(Menu("mnuRecent").Parent(), &Menu("mnuFile"));
  EXPECT_EQ(Menu("mnuRecent").Tip(), "Files read or saved last");
  EXPECT_EQ(form.recent_menu.mnuRecent.Size(), 10);
  EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(RecentMenuTest, AnEntryHasItsNumberAndNameAndTheWholePathAsItsTip) {
  form.recent.Add("/data/b.npd");
  form.recent.Add("/data/run.7/a.npd");
  EXPECT_TRUE(Menu("mnuRecent").Enabled());
  EXPECT_THAT(Entries(), ElementsAre("&1 a.npd", "&2 b.npd"));
  EXPECT_EQ(Menu("mnuRecent_0").Tip(), "/data/run.7/a.npd");
  EXPECT_EQ(Menu("mnuRecent_0").Parent(), &Menu("mnuRecent"));
}

TEST_F(RecentMenuTest, TheTenthHasTheMnemonicZero) {
  for (int i = 0; i < 11; ++i) form.recent.Add("/data/" + std::to_string(i) + ".npd");
  ASSERT_EQ(Entries().size(), 10u);
  EXPECT_EQ(Entries()[8], "&9 2.npd");
  EXPECT_EQ(Entries()[9], "1&0 1.npd");
}

TEST_F(RecentMenuTest, AnAmpersandInAFileNameStandsForItself) {
  form.recent.Add("/data/Al&Fe.npd");
  EXPECT_THAT(Entries(), ElementsAre("&1 Al&&Fe.npd"));
  EXPECT_EQ(Menu("mnuRecent_0").Tip(), "/data/Al&Fe.npd");
}

TEST_F(RecentMenuTest, FilesThatWereReadEnterTheListTheLastOneFirst) {
  OpenFiles(2);
  EXPECT_THAT(Entries(), ElementsAre("&1 b.xbm", "&2 a.xbm"));
  EXPECT_THAT(settings.Texts("RecentFiles"),
              ElementsAre(folder.Path("b.xbm"), folder.Path("a.xbm")));
}

TEST_F(RecentMenuTest, AFileThatCouldNotBeReadDoesNotEnter) {
  folder.Put("data.abc", "anything");
  dialogs.ExpectMessage("Open Error");
  form.Drop({folder.Path("data.abc"), folder.Path("missing.xbm")});
  EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(RecentMenuTest, ASavedFileEntersWhereItCanBeReadAgain) {
  ShowSpectrum();
  dialogs.ExpectSave(folder.Path("out.xbm"));
  Menu("mnuSave").Choose();
  dialogs.ExpectSave(folder.Path("out.xta"));  // there is no reader
  Menu("mnuSave").Choose();
  EXPECT_THAT(Entries(), ElementsAre("&1 out.xbm"));
}

TEST_F(RecentMenuTest, TheNextRunShowsThem) {
  OpenFiles(1);
  ScriptedFormHost other_host;
  frmDorvane next(program, other_host, launcher, settings);
  EXPECT_EQ(next.recent_menu.mnuRecent[0].Caption(), "&1 a.xbm");
}

TEST_F(RecentMenuTest, AChosenFileTakesThePlaceOfWhatIsThereAndComesToTheHead) {
  OpenFiles(3);
  ASSERT_THAT(Entries(), ElementsAre("&1 c.xbm", "&2 b.xbm", "&3 a.xbm"));
  Menu("mnuRecent_1").Choose();
  EXPECT_THAT(Titles(), ElementsAre("b.xbm"));
  EXPECT_THAT(Entries(), ElementsAre("&1 b.xbm", "&2 c.xbm", "&3 a.xbm"));
}

TEST_F(RecentMenuTest, AChoiceAsksAboutUnsavedGraphsFirst) {
  const std::string path = NativeFile("new.xbm");
  form.recent.Add(path);
  workspace.Slots[0].State = kRowUnsaved;
  dialogs.ExpectQuestion("File No Save.  Grp=1 (Do you Cansel?)", true);
  Menu("mnuRecent_0").Choose();
  EXPECT_THAT(Titles(), ElementsAre("new.xbm"));
}

TEST_F(RecentMenuTest, AFileThatIsGoneGivesItsMessageAndLeavesTheList) {
  OpenFiles(2);
  std::filesystem::remove(folder.Path("a.xbm"));
  dialogs.ExpectMessage("Open Error");
  Menu("mnuRecent_1").Choose();
  EXPECT_THAT(Entries(), ElementsAre("&1 b.xbm"));
  EXPECT_THAT(settings.Texts("RecentFiles"), ElementsAre(folder.Path("b.xbm")));
}

TEST_F(RecentMenuTest, AFileThatIsThereButCannotBeReadStaysInTheList) {
  folder.Put("data.abc", "anything");
  form.recent.Add(folder.Path("data.abc"));
  Menu("mnuRecent_0").Choose();
  EXPECT_THAT(Entries(), ElementsAre("&1 data.abc"));
}

TEST_F(RecentMenuTest, AFileThatCannotBeLookedAtStaysInTheListAndGivesOneMessage) {
  form.recent.Add(folder.Path(std::string(300, 'x') + ".xbm"));  // longer than a name can be
  dialogs.ExpectMessage("Open Error");
  Menu("mnuRecent_0").Choose();
  EXPECT_EQ(Entries().size(), 1u);
}

TEST_F(RecentMenuTest, AnEntryThatIsNotShownDoesNothing) {
  ShowSpectrum();
  Menu("mnuRecent_4").Choose();
  EXPECT_THAT(Titles(), ElementsAre("a.npd"));
}

}  // namespace
}  // namespace dorvane
