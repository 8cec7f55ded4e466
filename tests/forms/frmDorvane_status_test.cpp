// The status line of the main form.
#include <gtest/gtest.h>

#include "forms/MainFormFixture.h"

namespace dorvane {
namespace {

class StatusLineTest : public MainFormTest {
 protected:
  std::string Hint() const { return form.status.lblHint.Caption(); }
  // As the desktop tells of begin and end.
  void InACommand(const std::function<void()>& work, bool stopped = false) {
    form.status.Begin();
    work();
    form.status.End(stopped);
  }
};

TEST_F(StatusLineTest, AMessageSaysWhatToDoUntilTheNextCommand) {
  InACommand([this] { form.status.Tell("ShiftGraph: Data Notting!"); });
  EXPECT_EQ(Hint(), "Open a spectrum first: Ctrl+O");
  InACommand([] {});
  EXPECT_EQ(Hint(), "");
}

TEST_F(StatusLineTest, UnreadFilesAreNamed) {
  folder.Put("notes.txt", "no spectrum");
  InACommand([this] { form.Drop({folder.Path("notes.txt")}); });
  EXPECT_EQ(
      Hint(),
      "Not read: notes.txt. Spectra end in .npd, .cnf, .rpt, .chn, .xbm, .xba, .raw or a number");
}

TEST_F(StatusLineTest, FilesPastTheTenthAreNotReadWhichTheLineTells) {
  const std::string path = folder.Path("a.xbm");
  ShowSpectrum("a.xbm");
  SaveGraphAs(program, path);
  InACommand([&] { form.Drop(std::vector<std::string>(11, path)); });
  EXPECT_EQ(Hint(), "Only the first ten files were read");
  InACommand([&] { form.Drop(std::vector<std::string>(10, path)); });
  EXPECT_EQ(Hint(), "");
}

TEST_F(StatusLineTest, ASavedGraphIsNamed) {
  ShowSpectrum("a.npd");
  InACommand([this] { SaveGraphAs(program, folder.Path("b.xbm")); });
  EXPECT_EQ(Hint(), "Saved b.xbm");
}

TEST_F(StatusLineTest, AKindWithoutAWriterIsNotSavedSilently) {
  ShowSpectrum("a.npd");
  InACommand([this] { SaveGraphAs(program, folder.Path("b.foo")); });
  EXPECT_EQ(Hint(), "Not saved, there is no writer for b.foo");
}

TEST_F(StatusLineTest, AFailedWriteSaysWhy) {
  ShowSpectrum("a.npd");
  InACommand([this] {
    form.status.Tell("Open Error");
    form.status.FileNotWritten("/data/b.npd");
  });
  EXPECT_EQ(
      Hint(),
      "Not saved: b.npd. The file can't be written: it needs permission, and room on the disk");
}

TEST_F(StatusLineTest, ALongCommandCanBeStoppedAndSaysSo) {
  form.status.Begin();
  form.status.BeginLong();
  EXPECT_EQ(Hint(), "Escape stops the operation");
  form.status.End(false);
  EXPECT_EQ(Hint(), "");
  InACommand([this] { form.status.BeginLong(); }, true);
  EXPECT_EQ(Hint(), "Stopped; nothing has changed");
}

TEST_F(StatusLineTest, TheFirstStartIsExplained) {
  InACommand([this] {
    dialogs.ExpectMessage("Para File Read (Open Error)");
    EXPECT_FALSE(form.Form_Load("/data/"));
    form.status.Tell("Para File Read (Open Error)");
  });
  EXPECT_EQ(Hint(), "First start: the default settings are in use, and kept when the program ends");
}

TEST_F(StatusLineTest, HelpSaysWhereTheHandbookLies) {
  form.status.SetHandbook("/programs/ReadMe.txt");
  InACommand([this] { form.status.Tell("Please read 'ReadMe.txt'"); });
  EXPECT_EQ(Hint(), "/programs/ReadMe.txt");
}

TEST_F(StatusLineTest, FileIsTheMeasurementsNameOrElseTheTitle) {
  const auto data_no = ShowSpectrum("a.npd");
  EXPECT_EQ(form.status.lblFile.Caption(), "a.npd");
  workspace.Spectra[data_no].MsuName.Set("run 7");
  form.RedrawWanted(0);
  form.SelectorFilled();
  EXPECT_EQ(form.status.lblFile.Caption(), "run 7");
}

TEST_F(StatusLineTest, PeaksAreCounted) {
  ShowSpectrum();
  AddPeak(100);
  AddPeak(200);
  form.SelectorFilled();
  EXPECT_EQ(form.status.lblPeaks.Caption(), "2 peaks, 0 fitted");
}

}  // namespace
}  // namespace dorvane
