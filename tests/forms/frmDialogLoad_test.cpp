#include "forms/frmDialogLoad.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <map>

#include "forms/FormFixture.h"
#include "program/ProgramFixture.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A system with drives, of which A: has no disk in it.
class DriveFolders : public Folders {
 public:
  std::vector<std::string> Drives() override { return {"A:", "C:", "D:"}; }
  FolderContent List(const std::string& path) override {
    const auto found = content_.find(path.ends_with('\\') ? path : path + "\\");
    if (found == content_.end()) throw Fault(FaultCode::FileNotFound);
    return found->second;
  }
  void Make(const std::string&) override { throw Fault(FaultCode::PermissionDenied); }

 private:
  std::map<std::string, FolderContent> content_{
      {"C:\\", {"C:\\", {"data"}, {"c.npd"}}},
      {"C:\\data\\", {"C:\\data", {}, {"a.npd"}}},
      {"D:\\", {"D:\\", {}, {"d.npd"}}},
  };
};

class DialogLoadTest : public ProgramTest {
 protected:
  explicit DialogLoadTest(Folders* own = nullptr)
      : folders(own == nullptr ? static_cast<Folders&>(system_folders) : *own) {}

  // Opens the dialog, works it, and cancels it if that has not closed it.
  bool Work(const std::function<void()>& work) {
    host.ExpectModal([&](Form&) {
      work();
      if (form.Visible()) form.cmdCancel.Press();
    });
    return form.Open();
  }
  bool Take(const std::string& text) {
    return Work([&] {
      form.txtSelFile.SetText(text);
      form.cmdSet.Press();
    });
  }
  void Select(const std::string& name) {
    const auto& items = form.filFiles.Items();
    const auto at = std::find(items.begin(), items.end(), name) - items.begin();
    form.filFiles.SetIndex(static_cast<int>(at));
  }
  void GoTo(const std::string& name) {
    const auto& items = form.dirDirectory.Items();
    const auto at = std::find(items.begin(), items.end(), name) - items.begin();
    form.dirDirectory.SetIndex(static_cast<int>(at));
    form.dirDirectory.DoubleClick();
  }

  ScriptedFormHost host;
  SystemFolders system_folders;
  Folders& folders;
  frmDialogLoad form{program, host, folders};
};

// A folder with a few files, another folder and a hidden one.
class DialogLoadInFolder : public DialogLoadTest {
 protected:
  DialogLoadInFolder() {
    for (const char* name : {"a.npd", "b.npd", "c.rpt", "plain"}) folder.Put(name, "");
    std::filesystem::create_directory(folder.Path("runs"));
    folder.Put("runs/r.npd", "12345");
    form.Directory(folder.Path(""));
  }
};

TEST_F(DialogLoadInFolder, HasItsCaptions) {
  form.DialogCaption("Reference Spectra");
  EXPECT_EQ(form.Caption(), "Reference Spectra");
  EXPECT_EQ(form.cmdMkDir.Caption(), "New Path");
  EXPECT_EQ(form.cmdDetails.Caption(), "Info.");
  EXPECT_EQ(form.cmdSet.Caption(), "O K");
  EXPECT_THAT(form.optGSel.Captions(), ElementsAre("PileUp", "LineUp"));
}

TEST_F(DialogLoadInFolder, FolderAndItsContentAreListed) {
  EXPECT_EQ(form.lblDirectory.Caption(), folder.Path(""));
  EXPECT_THAT(form.dirDirectory.Items(), ElementsAre("..", "runs"));
  EXPECT_THAT(form.filFiles.Items(), ElementsAre("a.npd", "b.npd", "c.rpt", "plain"));
}

TEST_F(DialogLoadInFolder, MaskLimitsTheFiles) {
  form.mask("*.npd");
  EXPECT_THAT(form.filFiles.Items(), ElementsAre("a.npd", "b.npd"));
  form.mask("*.rpt;p*");
  EXPECT_THAT(form.filFiles.Items(), ElementsAre("c.rpt", "plain"));
  form.mask("*.*");
  EXPECT_EQ(form.filFiles.Items().size(), 4u);
}

TEST_F(DialogLoadInFolder, ExtensionsBecomeMasks) {
  form.SetExt({"npd", "000", "rpt"});
  EXPECT_THAT(form.cmbExtName.Items(), ElementsAre("*.npd", "*.0??;*.1??;*.2??", "*.rpt"));
  EXPECT_EQ(form.cmbExtName.Text(), "*.npd");
  EXPECT_THAT(form.filFiles.Items(), ElementsAre("a.npd", "b.npd"));
}

TEST_F(DialogLoadInFolder, ChosenExtensionIsTheMask) {
  form.SetExt({"npd", "rpt"});
  form.cmbExtName.SetIndex(1);
  EXPECT_THAT(form.filFiles.Items(), ElementsAre("c.rpt"));
}

TEST_F(DialogLoadInFolder, MaskOfTheCallerSelectsItsExtension) {
  form.SetExt({"npd", "rpt"});
  form.mask("*.rpt");
  EXPECT_EQ(form.cmbExtName.Text(), "*.rpt");
  form.mask("p*");
  EXPECT_EQ(form.cmbExtName.Index(), -1);
  EXPECT_THAT(form.filFiles.Items(), ElementsAre("plain"));
}

TEST_F(DialogLoadInFolder, NumberedFilesAreThoseFrom000To299) {
  for (const char* name : {"x.000", "x.128", "x.299", "x.300", "x.01"}) folder.Put(name, "");
  form.SetExt({"000"});
  Work([&] { EXPECT_THAT(form.filFiles.Items(), ElementsAre("x.000", "x.128", "x.299")); });
}

TEST_F(DialogLoadInFolder, ClickOnAFileCopiesItsName) {
  Work([&] {
    Select("b.npd");
    EXPECT_EQ(form.txtSelFile.Text(), "b.npd");
    EXPECT_TRUE(form.Visible());
  });
}

TEST_F(DialogLoadInFolder, ClickOnSeveralFilesJoinsAndCountsThem) {
  form.MultiSelect(true);
  Work([&] {
    form.filFiles.SetSelected({2, 0});
    EXPECT_EQ(form.txtSelFile.Text(), "a.npd;c.rpt");
    EXPECT_EQ(form.SelectFileNo(), 2);
    form.filFiles.SetSelected({});
    EXPECT_EQ(form.txtSelFile.Text(), "");
    EXPECT_EQ(form.SelectFileNo(), 0);
  });
}

TEST_F(DialogLoadInFolder, WithoutMultiSelectOneFileIsSelected) {
  form.filFiles.SetSelected({1, 2});
  EXPECT_EQ(form.txtSelFile.Text(), "b.npd");
}

TEST_F(DialogLoadInFolder, OkJoinsFolderAndName) {
  EXPECT_TRUE(Work([&] {
    Select("a.npd");
    form.cmdSet.Press();
    EXPECT_FALSE(form.Visible());
  }));
  EXPECT_EQ(form.FileName(), folder.Path("a.npd"));
  EXPECT_THAT(form.Paths(), ElementsAre(folder.Path("a.npd")));
  EXPECT_EQ(form.SelectFileNo(), 1);
}

TEST_F(DialogLoadInFolder, FolderStandsBeforeTheFirstOfSeveralNames) {
  form.MultiSelect(true);
  Work([&] {
    form.filFiles.SetSelected({0, 1});
    form.cmdSet.Press();
  });
  EXPECT_EQ(form.FileName(), folder.Path("a.npd") + ";b.npd");
  EXPECT_THAT(form.Paths(), ElementsAre(folder.Path("a.npd"), folder.Path("b.npd")));
}

TEST_F(DialogLoadInFolder, TypedNamesAreCutAtCommaAndSemicolon) {
  form.MultiSelect(true);
  EXPECT_TRUE(Take("a.npd, with blank.npd;c.rpt;"));
  EXPECT_THAT(form.Paths(), ElementsAre(folder.Path("a.npd"), folder.Path("with blank.npd"),
                                        folder.Path("c.rpt")));
  EXPECT_EQ(form.SelectFileNo(), 3);
}

TEST_F(DialogLoadInFolder, SelectedNameIsOneFileWhateverItHolds) {
  folder.Put("x, y;z.npd", "");
  form.MultiSelect(true);
  Work([&] {
    Select("x, y;z.npd");
    form.cmdSet.Press();
  });
  EXPECT_THAT(form.Paths(), ElementsAre(folder.Path("x, y;z.npd")));
}

TEST_F(DialogLoadInFolder, OneNameIsNotCutWithoutMultiSelect) {
  Take("a,b;c.npd");
  EXPECT_THAT(form.Paths(), ElementsAre(folder.Path("a,b;c.npd")));
}

TEST_F(DialogLoadInFolder, DoubleClickOnAFileTakesIt) {
  EXPECT_TRUE(Work([&] {
    Select("c.rpt");
    form.filFiles.DoubleClick();
  }));
  EXPECT_EQ(form.FileName(), folder.Path("c.rpt"));
}

TEST_F(DialogLoadInFolder, EmptyNameIsAskedForAndTheDialogStays) {
  for (const char* text : {"", "  "}) {
    dialogs.ExpectMessage("Please input file name");
    EXPECT_FALSE(Work([&] {
      form.txtSelFile.SetText(text);
      form.cmdSet.Press();
      EXPECT_TRUE(form.Visible());
    }));
  }
}

TEST_F(DialogLoadInFolder, SeparatorsAloneAreNoName) {
  form.MultiSelect(true);
  dialogs.ExpectMessage("Please input file name");
  EXPECT_FALSE(Take(" ; ,"));
}

TEST_F(DialogLoadInFolder, NameWithoutPointGetsTheDefaultExtension) {
  for (const char* extension : {"npd", ".npd"}) {
    form.DefExt(extension);
    Take("new");
    EXPECT_EQ(form.FileName(), folder.Path("new.npd"));
  }
}

TEST_F(DialogLoadInFolder, NameWithAPointKeepsItsExtension) {
  form.DefExt("npd");
  Take("new.xyz");
  EXPECT_EQ(form.FileName(), folder.Path("new.xyz"));
}

TEST_F(DialogLoadInFolder, PointInAFolderIsNoExtension) {
  form.DefExt("npd");
  Take("../x/new");
  EXPECT_EQ(form.FileName(), folder.Path("../x/new.npd"));
}

TEST_F(DialogLoadInFolder, EachOfSeveralNamesGetsTheDefaultExtension) {
  form.MultiSelect(true);
  form.DefExt("npd");
  Take("a;b.rpt;c");
  EXPECT_EQ(form.FileName(), folder.Path("a.npd") + ";b.rpt;c.npd");
}

TEST_F(DialogLoadInFolder, WithoutADefaultExtensionTheNameStays) {
  form.DefExt("");
  Take("new");
  EXPECT_EQ(form.FileName(), folder.Path("new"));
}

TEST_F(DialogLoadInFolder, CancelAndTheFrameGiveNoName) {
  for (const bool by_frame : {false, true}) {
    Take("a.npd");
    EXPECT_FALSE(Work([&] {
      Select("a.npd");
      by_frame ? form.QueryClose() : form.cmdCancel.Press();
      EXPECT_FALSE(form.Visible());
    }));
    EXPECT_EQ(form.FileName(), "");
    EXPECT_THAT(form.Paths(), IsEmpty());
    EXPECT_EQ(form.SelectFileNo(), 0);
  }
}

TEST_F(DialogLoadInFolder, NameOfTheCallerStandsInTheBox) {
  form.FileName("b.npd");
  Work([&] {
    EXPECT_EQ(form.txtSelFile.Text(), "b.npd");
    form.cmdSet.Press();
  });
  EXPECT_EQ(form.FileName(), folder.Path("b.npd"));
}

TEST_F(DialogLoadInFolder, DoubleClickOnAFolderGoesIntoIt) {
  Work([&] {
    GoTo("runs");
    EXPECT_EQ(form.Directory(), folder.Path("runs/"));
    EXPECT_THAT(form.filFiles.Items(), ElementsAre("r.npd"));
    Select("r.npd");
    form.cmdSet.Press();
  });
  EXPECT_EQ(form.FileName(), folder.Path("runs/r.npd"));
}

TEST_F(DialogLoadInFolder, TwoPointsGoOut) {
  form.Directory(folder.Path("runs"));
  GoTo("..");
  EXPECT_EQ(form.Directory(), folder.Path(""));
}

TEST_F(DialogLoadInFolder, OutermostFolderHasNoWayOut) {
  form.Directory("/");
  EXPECT_NE(form.dirDirectory.Items().front(), "..");
}

TEST_F(DialogLoadInFolder, SelectedNameIsForgottenInAnotherFolderAndATypedOneIsKept) {
  Work([&] {
    Select("a.npd");
    GoTo("runs");
    EXPECT_EQ(form.txtSelFile.Text(), "");
    form.txtSelFile.SetText("mine.npd");
    GoTo("..");
    EXPECT_EQ(form.txtSelFile.Text(), "mine.npd");
  });
}

TEST_F(DialogLoadInFolder, FolderThatIsGoneIsToldAndTheListsStay) {
  Work([&] {
    std::filesystem::remove_all(folder.Path("runs"));
    dialogs.ExpectMessage(FaultText(FaultCode::FileNotFound));
    GoTo("runs");
    EXPECT_EQ(form.Directory(), folder.Path(""));
    EXPECT_EQ(form.filFiles.Items().size(), 4u);
  });
}

TEST_F(DialogLoadInFolder, TypedFolderIsGoneInto) {
  for (const std::string& typed : {std::string("runs"), folder.Path("runs/")}) {
    form.Directory(folder.Path(""));
    EXPECT_FALSE(Work([&] {
      form.txtSelFile.SetText(typed);
      form.cmdSet.Press();
      EXPECT_TRUE(form.Visible());
      EXPECT_EQ(form.Directory(), folder.Path("runs/"));
      EXPECT_EQ(form.txtSelFile.Text(), "");
    }));
  }
}

TEST_F(DialogLoadInFolder, TypedWholePathIsNotLookedForInTheFolderShown) {
  form.Directory("/");
  Take(folder.Path("a.npd"));
  EXPECT_EQ(form.FileName(), folder.Path("a.npd"));
}

TEST_F(DialogLoadInFolder, OpeningReadsTheFolderAnew) {
  folder.Put("later.npd", "");
  form.mask("l*");
  Work([&] { EXPECT_THAT(form.filFiles.Items(), ElementsAre("later.npd")); });
}

TEST_F(DialogLoadInFolder, FolderIsKeptForTheNextOpening) {
  Work([&] { GoTo("runs"); });
  Work([&] { EXPECT_EQ(form.Directory(), folder.Path("runs/")); });
}

TEST_F(DialogLoadInFolder, MissingFolderOfTheCallerIsLookedForFurtherOut) {
  form.Directory(folder.Path("runs/gone/deeper/"));
  EXPECT_EQ(form.Directory(), folder.Path("runs/"));
  form.Directory("no/such/folder");
  EXPECT_EQ(form.Directory(), std::filesystem::current_path().string() + "/");
}

TEST_F(DialogLoadInFolder, NewPathIsMadeAndSelected) {
  Work([&] {
    host.ExpectModal([&](Form& input) {
      EXPECT_EQ(input.Caption(), "New Path");
      form.new_path.txtInput.SetText(" fresh ");
      form.new_path.cmdOk.Press();
    });
    form.cmdMkDir.Press();
    EXPECT_TRUE(folder.Has("fresh"));
    EXPECT_THAT(form.dirDirectory.Items(), ElementsAre("..", "fresh", "runs"));
    EXPECT_EQ(form.dirDirectory.Text(), "fresh");
  });
}

TEST_F(DialogLoadInFolder, NewPathThatIsCancelledMakesNothing) {
  Work([&] {
    host.ExpectModal([&](Form&) { form.new_path.cmdCan.Press(); });
    form.cmdMkDir.Press();
    EXPECT_THAT(form.dirDirectory.Items(), ElementsAre("..", "runs"));
  });
}

TEST_F(DialogLoadInFolder, NewPathThatCannotBeMadeIsTold) {
  dialogs.ExpectMessage(FaultText(FaultCode::FileFailed));
  Work([&] {
    host.ExpectModal([&](Form&) {
      form.new_path.txtInput.SetText("runs");
      form.new_path.cmdOk.Press();
    });
    form.cmdMkDir.Press();
    EXPECT_TRUE(form.Visible());
  });
}

TEST_F(DialogLoadInFolder, InfoIsForNamesThatEndInAtr) {
  for (const char* name : {"x.ATR", "x.atr", "x.Atr"}) {
    form.txtSelFile.SetText(name);
    EXPECT_TRUE(form.cmdDetails.Enabled()) << name;
  }
  for (const char* name : {"a.npd", "x.atr2", "atr", ""}) {
    form.txtSelFile.SetText(name);
    EXPECT_FALSE(form.cmdDetails.Enabled()) << name;
  }
}

TEST_F(DialogLoadInFolder, InfoTellsTheSizeOfTheFile) {
  folder.Put("x.atr", "12345");
  form.txtSelFile.SetText("x.atr");
  dialogs.ExpectMessage("x.atr: 5 bytes");
  form.cmdDetails.Press();
}

TEST_F(DialogLoadInFolder, InfoOfAFileThatIsGoneSaysSo) {
  form.txtSelFile.SetText("gone.atr");
  dialogs.ExpectMessage(FaultText(FaultCode::FileNotFound));
  form.cmdDetails.Press();
}

TEST_F(DialogLoadInFolder, PartsAreShownAsTheCallerAsks) {
  for (const bool shown : {false, true}) {
    form.VisibleMkDir(shown);
    form.VisibleWin(shown);
    EXPECT_EQ(form.cmdMkDir.Visible(), shown);
    EXPECT_EQ(form.frmSelWin.Visible(), shown);
  }
}

TEST_F(DialogLoadInFolder, GraphsAreNumberedFromOne) {
  form.MaxGrp(3);
  EXPECT_THAT(form.cboGSel.Items(), ElementsAre("1 Graph", "2 Graph", "3 Graph"));
  EXPECT_EQ(form.GraphNo(), 0);
  form.DefGraph(2);
  EXPECT_EQ(form.GraphNo(), 2);
  form.DefGraph(4);
  EXPECT_EQ(form.GraphNo(), 2);
  form.MaxGrp(1);
  EXPECT_EQ(form.GraphNo(), 0);
}

TEST_F(DialogLoadInFolder, ModeIsPileUpOrLineUp) {
  EXPECT_EQ(form.ModeSelect(), 0);
  form.ModeSelect(1);
  EXPECT_EQ(form.ModeSelect(), 1);
}

TEST_F(DialogLoadInFolder, SystemWithoutDrivesShowsNone) {
  EXPECT_FALSE(form.drvDrive.Visible());
  form.drive("C:");
  EXPECT_EQ(form.Directory(), folder.Path(""));
}

struct WithDrives {
  DriveFolders drives;
};
class DialogLoadOnDrives : private WithDrives, public DialogLoadTest {
 protected:
  DialogLoadOnDrives() : DialogLoadTest(&drives) { form.Directory("C:\\data"); }
};

TEST_F(DialogLoadOnDrives, DriveOfTheFolderIsSelected) {
  EXPECT_TRUE(form.drvDrive.Visible());
  EXPECT_EQ(form.drvDrive.Text(), "C:");
  EXPECT_EQ(form.Directory(), "C:\\data\\");
}

TEST_F(DialogLoadOnDrives, AnotherDriveShowsItsOutermostFolder) {
  form.drvDrive.SetIndex(2);
  EXPECT_EQ(form.Directory(), "D:\\");
  EXPECT_THAT(form.dirDirectory.Items(), IsEmpty());
  EXPECT_THAT(form.filFiles.Items(), ElementsAre("d.npd"));
}

TEST_F(DialogLoadOnDrives, DriveThatCannotBeReadIsToldAndTheOldOneComesBack) {
  dialogs.ExpectMessage("Can not use this drive!");
  form.drvDrive.SetIndex(0);
  EXPECT_EQ(form.drvDrive.Text(), "C:");
  EXPECT_EQ(form.Directory(), "C:\\data\\");
  EXPECT_THAT(form.filFiles.Items(), ElementsAre("a.npd"));
}

TEST_F(DialogLoadOnDrives, DriveOfTheCallerIsShown) {
  form.drive("D:");
  EXPECT_EQ(form.Directory(), "D:\\");
  form.drive("Z:");
  EXPECT_EQ(form.Directory(), "D:\\");
}

TEST_F(DialogLoadOnDrives, NameIsJoinedWithABackslash) {
  Take("a.npd");
  EXPECT_EQ(form.FileName(), "C:\\data\\a.npd");
}

TEST_F(DialogLoadOnDrives, NameWithADriveIsNotLookedForInTheFolderShown) {
  Take("D:\\d.npd");
  EXPECT_EQ(form.FileName(), "D:\\d.npd");
}

}  // namespace
}  // namespace dorvane
