#include "program/PeakReport.h"

#include <gmock/gmock.h>

#include "processing/Units.h"
#include "program/PeakFixture.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

class PeakReportTest : public PeakFitTest {
 protected:
  // A spectrum of 64 channels with two fitted peaks.
  std::int16_t ShowWithPeaks(const std::string& title = "a.npd") {
    const std::int16_t data_no = Show(std::vector<std::int32_t>(64, 7), title);
    for (const double center : {20.0, 40.0}) {
      PeakRec& peak = Enter(data_no, {100, center, 2}, 10, 50);
      peak.FitDone = kTrue;
      peak.FuncType = kGauss;
      peak.GaussRatio = 1;
    }
    return data_no;
  }
  // Row 0: an empty curve "Fit"; row 1: the spectrum.
  std::int16_t ShowBelowFit() {
    Show(std::vector<std::int32_t>(64, 0), "Fit");
    return ShowWithPeaks();
  }
  PeakTable TableOf(int row) const { return workspace.Peaks[Row(row).DataNo]; }
};

// Gaussian of height 200 and half width 2 at channel 20: half its height two channels off, a
// sixteenth four channels off, which is 12.5 and goes to the even neighbour.
TEST_F(PeakReportTest, CurveFollowsFromTheNewPeaks) {
  ShowBelowFit();
  PeakTable table = TableOf(1);
  table.Peaks[0].Height = 200;
  ReplacePeaks(program, 0, 1, table);
  const auto curve = CountsOf(Row(0).DataNo);
  EXPECT_THAT((std::vector{curve[16], curve[18], curve[20], curve[40]}),
              ElementsAre(12, 100, 200, 100));
  EXPECT_EQ(TableOf(0), table);
  EXPECT_EQ(TableOf(1), table);
  EXPECT_EQ(CountsOf(Row(1).DataNo), std::vector<std::int32_t>(64, 7));
}

TEST_F(PeakReportTest, FirstGraphIsMeantToBecomeFitWhateverItShows) {
  Show(std::vector<std::int32_t>(64, 3), "Smooth");
  ShowWithPeaks();
  ReplacePeaks(program, 0, 1, TableOf(1));
  EXPECT_THAT(Titles(), ElementsAre("Fit", "a.npd"));
  EXPECT_EQ(CountsOf(Row(0).DataNo)[20], 100);
  EXPECT_EQ(listener.Count("made 0 1"), 1);  // of the spectrum in row 1
}

TEST_F(PeakReportTest, MeasuredCountsAreNotReplacedByTheirOwnPeaks) {
  ShowWithPeaks();
  PeakTable table = TableOf(0);
  table.Peaks[0].Height = 200;
  ReplacePeaks(program, 0, 0, table);
  EXPECT_EQ(CountsOf(Row(0).DataNo), std::vector<std::int32_t>(64, 7));
  EXPECT_THAT(Titles(), ElementsAre("a.npd"));
  EXPECT_EQ(TableOf(0), table);
}

TEST_F(PeakReportTest, FitGraphIsCalculatedFromItsOwnPeaks) {
  ShowWithPeaks("Fit");
  PeakTable table = TableOf(0);
  table.Peaks[1].Height = 50;
  ReplacePeaks(program, 0, 0, table);
  EXPECT_EQ(CountsOf(Row(0).DataNo)[40], 50);
  EXPECT_EQ(CountsOf(Row(0).DataNo)[0], 0);
}

TEST_F(PeakReportTest, PeaksStandInTheOrderOfTheirCentres) {
  ShowBelowFit();
  PeakTable table = TableOf(1);
  table.Peaks[0].Center = 60;
  ReplacePeaks(program, 0, 1, table);
  EXPECT_EQ(TableOf(1).Peaks[0].Center, 40);
  EXPECT_EQ(TableOf(1).Peaks[1].Center, 60);
}

TEST_F(PeakReportTest, OnlyAChangedTableLeavesTheGraphUnsaved) {
  ShowBelowFit();
  PeakTable table = TableOf(1);
  ReplacePeaks(program, 0, 1, table);
  EXPECT_EQ(Row(1).State, kRowSaved);
  table.Peaks[0].Height = 101;
  ReplacePeaks(program, 0, 1, table);
  EXPECT_EQ(Row(1).State, kRowUnsaved);
}

TEST_F(PeakReportTest, CurrentRowStays) {
  ShowBelowFit();
  ReplacePeaks(program, 0, 1, TableOf(1));
  EXPECT_EQ(view.GraphNo, 1);
}

TEST_F(PeakReportTest, ProposedNameHasTheGraphsNumber) {
  Show({1, 2}, "Fit");
  Show({1, 2}, "run.7.npd");
  EXPECT_EQ(ProposedReportName(workspace, 1), "run_2FitParam.csv");
}

TEST_F(PeakReportTest, DerivedGraphIsNamedAfterTheFirstRawOne) {
  for (const char* title : {"Smooth", "Fit", "BackRemv", "BackGraund"}) Show({1, 2}, title);
  for (int row = 0; row < 4; ++row) {
    EXPECT_EQ(ProposedReportName(workspace, row), "FitParam.csv");
  }
  Show({1, 2}, "run.npd");
  Show({1, 2}, "other.npd");
  EXPECT_EQ(ProposedReportName(workspace, 1), "run_2FitParam.csv");
  EXPECT_EQ(ProposedReportName(workspace, 5), "other_6FitParam.csv");
}

// The angstrom sign of d is 81 F0 in code page 932.
TEST_F(PeakReportTest, FileHasHeaderAndPeaksInTheSystemCodePage) {
  const auto data_no = ShowWithPeaks();
  workspace.DefaultProp.TwoTheta = 0;
  EXPECT_EQ(SavePeakCsv(program, folder.Path("r.csv"), data_no, kUnitD), -1);
  EXPECT_EQ(folder.Get("r.csv"),
            "Peak(Ch),Peak(d:\x81\xF0),Intensity,FWHM(Ch),FWHM(d:\x81\xF0),FWHM(d),Amplitude,"
            "Gauss(%),Type\r\n"
            "  21.0000,   0.0000,    100.00,   4.00,   1.000,   0.000,      0.00, 100.0,N\r\n"
            "  41.0000,   0.0000,    100.00,   4.00,   1.000,   0.000,      0.00, 100.0,N\r\n");
}

TEST_F(PeakReportTest, EmptyTableGivesAFileOfTheHeaderAlone) {
  const auto data_no = Show({1, 2, 3});
  SavePeakCsv(program, folder.Path("r.csv"), data_no, kUnitCh);
  EXPECT_EQ(folder.Get("r.csv"),
            "Peak(Ch),Peak(Ch),Intensity,FWHM(Ch),FWHM(Ch),FWHM(d),Amplitude,Gauss(%),Type\r\n");
}

// ---- the file of the standard errors

TEST_F(PeakReportTest, ErrorsFileStandsBesideTheReport) {
  EXPECT_EQ(ErrorsFileOf("/a.b/run_2FitParam.csv"), "/a.b/run_2FitParam_errors.csv");
  EXPECT_EQ(ErrorsFileOf("run.7"), "run_errors.csv");
  EXPECT_EQ(ErrorsFileOf("run"), "run_errors.csv");
}

TEST_F(PeakReportTest, KnownErrorsAreSavedInAFileOfTheirOwn) {
  const auto data_no = ShowWithPeaks();
  for (int i = 0; i < 3; ++i) workspace.DefaultProp.EGC[i] = i == 1 ? 0.1 : 0;  // keV a channel
  workspace.Peaks[data_no].Peaks[1].Errors = {.Height = 10, .HalfWidth = 0.25, .Center = 0.125};
  EXPECT_EQ(SavePeakReport(program, folder.Path("r.csv"), data_no, kUnitCh), -1);
  EXPECT_EQ(folder.Get("r_errors.csv"),
            "Peak(Ch),Error of Peak(Ch),Error of Peak(Ch),Error of Intensity,Error of FWHM(Ch),"
            "Error of FWHM(keV),Error of Gauss(%),Type\r\n"
            "21.0000,,,,,,,N\r\n"
            "41.0000,0.125,0.125,10,0.5,0.05,,N\r\n");
}

TEST_F(PeakReportTest, ReportIsTheSameWithAndWithoutErrors) {
  const auto data_no = ShowWithPeaks();
  SavePeakReport(program, folder.Path("plain.csv"), data_no, kUnitCh);
  workspace.Peaks[data_no].Peaks[0].Errors.Height = 10;
  SavePeakReport(program, folder.Path("r.csv"), data_no, kUnitCh);
  EXPECT_EQ(folder.Get("r.csv"), folder.Get("plain.csv"));
}

TEST_F(PeakReportTest, WithoutAKnownErrorThereIsNoSecondFile) {
  const auto data_no = ShowWithPeaks();
  SavePeakReport(program, folder.Path("r.csv"), data_no, kUnitCh);
  EXPECT_THAT(folder.Names(), ElementsAre("r.csv"));
}

TEST_F(PeakReportTest, ErrorsOfAReportThatIsReplacedAreReplacedWithItEvenByNone) {
  const auto data_no = ShowWithPeaks();
  folder.Put("r.csv", "old");
  folder.Put("r_errors.csv", "old");
  SavePeakReport(program, folder.Path("r.csv"), data_no, kUnitCh);
  EXPECT_THAT(folder.Get("r_errors.csv"), testing::EndsWith("41.0000,,,,,,,N\r\n"));
}

TEST_F(PeakReportTest, ErrorsFileBesideANewReportIsReplacedAfterAQuestionOnly) {
  const auto data_no = ShowWithPeaks();
  workspace.Peaks[data_no].Peaks[0].Errors.Height = 10;
  const std::string question =
      "The file of the standard errors exists. Replace it?\n" + folder.Path("r_errors.csv");
  folder.Put("r_errors.csv", "of another");
  dialogs.ExpectQuestion(question, false);
  EXPECT_EQ(SavePeakReport(program, folder.Path("r.csv"), data_no, kUnitCh), -1);
  EXPECT_EQ(folder.Get("r_errors.csv"), "of another");
  EXPECT_TRUE(folder.Has("r.csv"));

  folder.Put("s_errors.csv", "of another");
  dialogs.ExpectQuestion(
      "The file of the standard errors exists. Replace it?\n" + folder.Path("s_errors.csv"), true);
  SavePeakReport(program, folder.Path("s.csv"), data_no, kUnitCh);
  EXPECT_THAT(folder.Get("s_errors.csv"), testing::StartsWith("Peak(Ch),Error of"));
}

TEST_F(PeakReportTest, ErrorsFileOfAnotherStaysWhereNoErrorIsKnown) {
  const auto data_no = ShowWithPeaks();
  folder.Put("r_errors.csv", "of another");
  SavePeakReport(program, folder.Path("r.csv"), data_no, kUnitCh);
  EXPECT_EQ(folder.Get("r_errors.csv"), "of another");
}

TEST_F(PeakReportTest, FailedErrorsFileLeavesTheReport) {
  class NoErrorsFile : public SystemFileLayer {
   public:
    int Create(const std::string& path, unsigned permissions) override {
      if (path.find("_errors") != std::string::npos) throw Fault(FaultCode::FileFailed);
      return SystemFileLayer::Create(path, permissions);
    }
  } layer;
  const auto other =
      std::make_unique<Program>(Ports{dialogs, layer, log, progress, views}, folder.Path(""));
  other->workspace.Peaks[0].Count = 1;
  other->workspace.Peaks[0].Peaks[0].Errors.Height = 1;
  dialogs.ExpectMessage("File Write Error");
  EXPECT_EQ(SavePeakReport(*other, folder.Path("r.csv"), 0, kUnitCh), 0);
  EXPECT_THAT(folder.Names(), ElementsAre("r.csv"));
}

TEST_F(PeakReportTest, FailedReportHasNoErrorsFile) {
  const auto data_no = ShowWithPeaks();
  workspace.Peaks[data_no].Peaks[0].Errors.Height = 10;
  dialogs.ExpectMessage("File Write Error");
  EXPECT_EQ(SavePeakReport(program, folder.Path("none/r.csv"), data_no, kUnitCh), 0);
  EXPECT_FALSE(folder.Has("none"));
}

TEST_F(PeakReportTest, FailedSaveTellsAndLeavesNoFile) {
  const auto data_no = ShowWithPeaks();
  dialogs.ExpectMessage("File Write Error");
  EXPECT_EQ(SavePeakCsv(program, folder.Path("none/r.csv"), data_no, kUnitCh), 0);
  EXPECT_FALSE(folder.Has("none"));
}

TEST_F(PeakReportTest, FailedWriteLeavesTheOldFile) {
  class FullDisk : public SystemFileLayer {
   public:
    void Write(int, std::span<const std::byte>) override { throw Fault(FaultCode::FileFailed); }
  } full;
  const auto other =
      std::make_unique<Program>(Ports{dialogs, full, log, progress, views}, folder.Path(""));
  folder.Put("r.csv", "old");
  dialogs.ExpectMessage("File Write Error");
  EXPECT_EQ(SavePeakCsv(*other, folder.Path("r.csv"), 0, kUnitCh), 0);
  EXPECT_THAT(folder.Names(), ElementsAre("r.csv"));
  EXPECT_EQ(folder.Get("r.csv"), "old");
}

}  // namespace
}  // namespace dorvane
