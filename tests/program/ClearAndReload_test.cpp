#include "program/ClearAndReload.h"

#include <gmock/gmock.h>

#include "processing/RoiOpe.h"
#include "program/Commands.h"
#include "program/OpenSave.h"
#include "program/ProgramFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

class ClearAndReloadTest : public ProgramTest {
 protected:
  // Saves what is shown as native files and opens these together.
  void OpenTwoFiles() {
    std::vector<std::string> paths;
    for (const char* name : {"a.xbm", "b.xbm"}) {
      Show({1, 2, 3}, name);
      paths.push_back(folder.Path(name));
      SaveGraphAs(program, paths.back());
    }
    LoadData(program, paths);
  }
};

TEST_F(ClearAndReloadTest, OnlyTheFirstFileOfTheLastSelectionComesBackAsMeant) {
  OpenTwoFiles();
  ASSERT_EQ(workspace.GrpCount, 2);
  ClearAndReload(program);
  EXPECT_THAT(Titles(), ElementsAre("a.xbm"));
  EXPECT_EQ(Row(0).Title, "a.xbm");
  EXPECT_EQ(workspace.GrpCount, 1);
}

TEST_F(ClearAndReloadTest, PeaksGoAndTheButtonsAreThoseOfANewOpen) {
  OpenTwoFiles();
  workspace.Peaks[0].Count = 3;
  view.Buttons = {false, false, true, true};
  ClearAndReload(program);
  EXPECT_EQ(workspace.Peaks[0].Count, 0);
  EXPECT_EQ(view.Buttons, OperationButtons{});
  EXPECT_EQ(listener.notices.back(), "buttons");
}

TEST_F(ClearAndReloadTest, WithoutASelectionTheWorkspaceStaysEmpty) {
  Show({1, 2, 3});
  ClearAndReload(program);
  EXPECT_EQ(workspace.GrpCount, 0);
}

TEST_F(ClearAndReloadTest, TheRegionsGoAlsoWhenNothingIsReadAgain) {
  const std::int16_t data_no = Show({1, 2, 3});
  RoiAdd(list, 0, data_no, 0, 2, 0xFF);
  ClearAndReload(program);
  EXPECT_EQ(workspace.Regions.RoiCount, 0);
}

TEST_F(ClearAndReloadTest, NoChangesNothing) {
  OpenTwoFiles();
  dialogs.ExpectQuestion("Clear All Data", false);
  RunCommand(program, "DelAll");
  EXPECT_THAT(Titles(), ElementsAre("a.xbm", "b.xbm"));
  EXPECT_EQ(dialogs.LastQuestion().caption, "Dorvane");
}

TEST_F(ClearAndReloadTest, YesStartsOver) {
  OpenTwoFiles();
  dialogs.ExpectQuestion("Clear All Data", true);
  RunCommand(program, "DelAll");
  EXPECT_THAT(Titles(), ElementsAre("a.xbm"));
}

}  // namespace
}  // namespace dorvane
