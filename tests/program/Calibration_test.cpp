#include "program/Calibration.h"

#include "program/Commands.h"
#include "program/Cursor.h"
#include "program/EditCrystalFile.h"
#include "program/ProgramFixture.h"
#include "program/WindowStyle.h"

namespace dorvane {
namespace {

class CalibrationTest : public ProgramTest {
 protected:
  void AddPeak(double center) {
    PeakTable& table = workspace.Peaks[view.DataNo];
    table.Peaks[table.Count].Center = center;
    ++table.Count;
  }
};

TEST_F(CalibrationTest, StartAndEndBracketTheDialogAndTell) {
  EneCalStart(program);
  EXPECT_EQ(view.CalibrationOn, kTrue);
  EneCalEnd(program);
  EXPECT_EQ(view.CalibrationOn, kFalse);
  EXPECT_EQ(listener.Count("buttons"), 2);
}

TEST_F(CalibrationTest, ATypedAngleBecomesTheDefaultOne) {
  EXPECT_TRUE(TypeDefaultTwoTheta(program, " 5.98632 "));
  EXPECT_EQ(workspace.DefaultProp.TwoTheta, 5.98632);
  EXPECT_EQ(listener.Count("axis"), 1);
}

TEST_F(CalibrationTest, AnAngleThatIsNoNumberChangesNothing) {
  workspace.DefaultProp.TwoTheta = 5;
  EXPECT_FALSE(TypeDefaultTwoTheta(program, "six"));
  EXPECT_EQ(workspace.DefaultProp.TwoTheta, 5);
}

TEST_F(CalibrationTest, TheCursorJumpsToTheNearestPeakAndGivesItsCentre) {
  Show(std::vector<std::int32_t>(1000, 1));
  for (const double center : {100.25, 300.75, 900.0}) AddPeak(center);
  CsrX_Change(program, 210);
  EXPECT_EQ(CsrChannel(program), 300.75);
  EXPECT_EQ(view.CursorCh, 301);
  EXPECT_EQ(view.CursorExact, 300.75);
}

TEST_F(CalibrationTest, OfTwoPeaksAsNearTheLeftOneIsTaken) {
  Show(std::vector<std::int32_t>(1000, 1));
  AddPeak(100);
  AddPeak(300);
  CsrX_Change(program, 200);
  EXPECT_EQ(CsrChannel(program), 100);
}

TEST_F(CalibrationTest, WithoutAPeakTheCursorStaysAndTheChannelIsNegative) {
  Show(std::vector<std::int32_t>(1000, 1));
  CsrX_Change(program, 210);
  EXPECT_EQ(CsrChannel(program), -1);
  EXPECT_EQ(view.CursorCh, 210);
}

TEST_F(CalibrationTest, AWindowLeavesThePileOnlyOutsideOfExpandMode) {
  chkFilePile_Click(program, 1, false);
  EXPECT_EQ(view.FilePile[1], kFalse);
  chkFilePile_Click(program, 1, true);
  ckbExpand_Click(program, true);
  chkFilePile_Click(program, 1, false);
  EXPECT_EQ(view.FilePile[1], kTrue);
}

struct RecordingLauncher : Launcher {
  bool works = true;
  std::string path;
  bool EditText(const std::string& file) override {
    path = file;
    return works;
  }
  bool Start(const std::string&) override { return works; }
};

TEST_F(CalibrationTest, TheCrystalLibraryOfTheProgramOpensInTheEditor) {
  RecordingLauncher launcher;
  EditCrystalFile(program, launcher);
  EXPECT_EQ(launcher.path, folder.Path("crystal.dat"));
}

TEST_F(CalibrationTest, AnEditorThatDoesNotStartIsTold) {
  RecordingLauncher launcher;
  launcher.works = false;
  dialogs.ExpectMessage("crystal file open error");
  EditCrystalFile(program, launcher);
}

TEST_F(CalibrationTest, HelpAndVersionShowTheirTexts) {
  dialogs.ExpectMessage("Please read 'ReadMe.txt'");
  RunCommand(program, "mnuHelp");
  dialogs.ExpectCaptionedMessage("Dorvane Ver 1.2004.01.05",
                                 "Dorvane\nEnergy-dispersive X-ray diffraction: from a spectrum "
                                 "to lattice and pressure");
  RunCommand(program, "mnuVersion");
}

TEST_F(CalibrationTest, NormalScaleIsSwitchedByItsEntryAndEndsTheAutomaticOne) {
  RunCommand(program, "mnuNorScale");
  EXPECT_EQ(view.NorScale, kTrue);
  EXPECT_EQ(view.AutoScale, kFalse);
  RunCommand(program, "mnuNorScale");
  EXPECT_EQ(view.NorScale, kFalse);
}

}  // namespace
}  // namespace dorvane
