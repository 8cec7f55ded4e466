#include "forms/frmResultDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "forms/FormFixture.h"
#include "program/LatticeLogFile.h"
#include "program/ProgramFixture.h"
#include "support/MemorySettings.h"

namespace dorvane {
namespace {

class ResultDirectoryTest : public ProgramTest {
 protected:
  ResultDirectoryTest() {
    std::filesystem::create_directory(folder.Path("results"));
    SetResultDirectory(settings, folder.Path("results"));
    folder.Put("file", "");
  }

  // Types a text, leaves by OK, and answers the directory that is set then.
  std::string SetTo(const std::string& text) {
    Work([&] {
      form.txtDirectory.SetText(text);
      form.cmdOk.Press();
    });
    return ResultDirectory(settings, folder.Path(""));
  }
  // The same where OK is refused.
  std::string TrySetTo(const std::string& text) {
    dialogs.ExpectMessage("No such directory: " + text + "/");
    Work([&] {
      form.txtDirectory.SetText(text);
      form.cmdOk.Press();
      EXPECT_TRUE(form.Visible());
      form.cmdCan.Press();
    });
    return ResultDirectory(settings, folder.Path(""));
  }
  void Work(const std::function<void()>& work) {
    host.ExpectModal([&](Form&) { work(); });
    form.Open();
  }

  ScriptedFormHost host;
  MemorySettings settings;
  frmResultDirectory form{program, host, settings};
};

TEST_F(ResultDirectoryTest, SaysWhatItIsForAndShowsWhatIsSet) {
  Work([&] {
    EXPECT_EQ(form.lblPurpose.Caption(), "\"Data Save\" writes LatticeFit.csv into");
    EXPECT_EQ(form.txtDirectory.Text(), folder.Path("results/"));
    form.cmdCan.Press();
  });
}

TEST_F(ResultDirectoryTest, ShowsTheProgramsDirectoryUntilOneIsSet) {
  SetResultDirectory(settings, "");
  Work([&] {
    EXPECT_EQ(form.txtDirectory.Text(), folder.Path(""));
    form.cmdCan.Press();
  });
}

TEST_F(ResultDirectoryTest, OkKeepsTheDirectory) {
  std::filesystem::create_directory(folder.Path("others"));
  EXPECT_EQ(SetTo(" " + folder.Path("others") + " "), folder.Path("others/"));
}

TEST_F(ResultDirectoryTest, CancelAndTheFrameLeaveItAsItWas) {
  for (const bool by_frame : {false, true}) {
    Work([&] {
      form.txtDirectory.SetText(folder.Path(""));
      by_frame ? form.QueryClose() : form.cmdCan.Press();
    });
    EXPECT_EQ(ResultDirectory(settings, ""), folder.Path("results/"));
  }
}

TEST_F(ResultDirectoryTest, EmptyAndTheProgramsDirectoryFollowTheProgram) {
  for (const std::string& text : {std::string(), folder.Path("")}) {
    SetResultDirectory(settings, folder.Path("results"));
    SetTo(text);
    EXPECT_EQ(ResultDirectory(settings, "/another/program/"), "/another/program/");
  }
}

TEST_F(ResultDirectoryTest, MissingDirectoryIsToldAndNotMade) {
  EXPECT_EQ(TrySetTo(folder.Path("missing")), folder.Path("results/"));
  EXPECT_FALSE(folder.Has("missing"));
}

TEST_F(ResultDirectoryTest, FileIsNoDirectory) {
  EXPECT_EQ(TrySetTo(folder.Path("file")), folder.Path("results/"));
}

TEST_F(ResultDirectoryTest, TypedPathIsKeptWhole) {
  EXPECT_EQ(SetTo("."), std::filesystem::current_path().string() + "/./");
}

TEST_F(ResultDirectoryTest, BrowseStartsThereAndPutsTheChoiceIntoTheBox) {
  dialogs.ExpectDirectory(folder.Path(""));
  Work([&] {
    form.cmdBrowse.Press();
    EXPECT_EQ(dialogs.LastStart(), folder.Path("results/"));
    EXPECT_EQ(form.txtDirectory.Text(), folder.Path(""));
    form.cmdCan.Press();
  });
}

TEST_F(ResultDirectoryTest, CancelledBrowseLeavesTheBox) {
  dialogs.ExpectDirectory({});
  Work([&] {
    form.cmdBrowse.Press();
    EXPECT_EQ(form.txtDirectory.Text(), folder.Path("results/"));
    form.cmdCan.Press();
  });
}

}  // namespace
}  // namespace dorvane
