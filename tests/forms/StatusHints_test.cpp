#include "forms/StatusHints.h"

#include <gtest/gtest.h>

#include <memory>

namespace dorvane {
namespace {

class StatusHints : public testing::Test {
 protected:
  void Show(int row, const std::string& title) {
    workspace->Slots[row].State = kRowSaved;
    workspace->Slots[row].DataNo = static_cast<std::int16_t>(row);
    workspace->Slots[row].Title = title;
    workspace->DataUse[row] = kTrue;
  }
  std::unique_ptr<Workspace> workspace = std::make_unique<Workspace>();
};

TEST_F(StatusHints, UnknownMessageHasNone) {
  EXPECT_EQ(HintFor("Bad Function Type!", *workspace), "");
}

TEST_F(StatusHints, OpenErrorOfAWriterIsNoFaultOfTheSpectrum) {
  EXPECT_EQ(HintFor("Open Error", *workspace, FileUse::Write),
            "The file can't be written: it needs permission, and room on the disk");
}

TEST_F(StatusHints, QuestionThatReadsTheOtherWayRoundIsExplained) {
  EXPECT_EQ(HintFor("File No Save.  Grp=2 (Do you Cansel?)", *workspace),
            "Yes drops what has changed, No keeps the data");
}

TEST_F(StatusHints, CutPeaksAreExplainedWhateverTheirNumber) {
  EXPECT_EQ(HintFor("3 Peaks Cuted", *workspace),
            "Peaks whose fit was not accepted have been removed");
}

TEST_F(StatusHints, AFailedWholeFitAndAnEmptyScanTellWhichWayToTurnTheCoefficient) {
  EXPECT_EQ(
      HintFor("Fitting was failed. Please change fit parameters(Change BG Coefficient to 5.0) "
              "and retry",
              *workspace),
      "A higher \"BG Coefficient\" takes more of the noise for background");
  EXPECT_EQ(HintFor("NO PEAKS ARE FOUND", *workspace).substr(0, 24), "A lower \"BG Coefficient\"");
}

TEST_F(StatusHints, FullPeakTableIsExplainedWhoeverMeetsIt) {
  for (const char* message : {"intPeakNo=-1", "No of Peak > 100 !"}) {
    EXPECT_EQ(HintFor(message, *workspace), "The peak table is full: a spectrum holds 100 peaks");
  }
}

TEST_F(StatusHints, FullListOfGoodReadsAsksToCloseAGraph) {
  for (int row = 0; row < kRows; ++row) Show(row, "a.npd");
  EXPECT_EQ(HintFor("GetGraphSpace: Notting Space!", *workspace),
            "All ten numbers are in use: close a graph with Ctrl+W");
}

TEST_F(StatusHints, NumbersLostToFailedReadsAreCounted) {
  for (int row = 0; row < 8; ++row) Show(row, "a.npd");
  workspace->DataUse[8] = workspace->DataUse[9] = kTrue;
  EXPECT_EQ(HintFor("GetGraphSpace: Notting Space!", *workspace).substr(0, 21),
            "2 of the ten numbers ");
}

TEST_F(StatusHints, ReadsOfGoodFilesAloneSayNothing) {
  EXPECT_EQ(NotReadText({}), "");
}

TEST_F(StatusHints, FilesThatWereNotReadAreNamed) {
  EXPECT_EQ(
      NotReadText({"/data/b.txt", "/data/c"}),
      "Not read: b.txt, c. Spectra end in .npd, .cnf, .rpt, .chn, .xbm, .xba, .raw or a number");
}

TEST_F(StatusHints, BrokenSpectrumNeedsNoWordOnItsName) {
  EXPECT_EQ(NotReadText({"/data/b.npd"}), "Not read: b.npd");
}

}  // namespace
}  // namespace dorvane
