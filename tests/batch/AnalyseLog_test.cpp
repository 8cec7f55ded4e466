// The log of the batch program beside that of the lattice form, worked by hand on the same
// spectrum.
#include "batch/BatchFixture.h"
#include "forms/FormFixture.h"
#include "forms/frmPeakCal.h"
#include "program/LineMarks.h"
#include "program/NaxFitting.h"
#include "program/OpenSave.h"
#include "support/MemorySettings.h"
#include "support/ScriptedDialogs.h"

namespace dorvane {
namespace {

class NoLog : public LogSink {
 public:
  void PutLog(std::string_view) override {}
};

class NoProgress : public Progress {
 public:
  void Report(int, int) override {}
  bool Cancelled() override { return false; }
};

class AnalyseLogTest : public BatchTest {
 protected:
  AnalyseLogTest() {
    std::filesystem::copy(DORVANE_SOURCE_DIR "/data/crystal.dat", folder.Path("crystal.dat"));
  }

  std::string LogOfForm(const std::string& spectrum, const std::string& sample, bool marker) {
    ScriptedDialogs dialogs;
    SystemFileLayer files;
    NoLog log;
    NoProgress progress;
    WorkspaceListener listener;
    const auto program =
        std::make_unique<Program>(Ports{dialogs, files, log, progress, listener}, folder.Path(""));
    ScriptedFormHost host;
    MemorySettings settings;
    LineMarks marks(*program);
    frmPeakCal form(*program, host, settings, marks);
    LoadData(*program, {spectrum});
    program->workspace.Settings.BgCoef = 1;  // what the batch program starts with
    NaxFitting(*program, 0, program->view.DataNo);
    host.ExpectModal([&](Form&) {
      if (marker) form.optSelectMode.SetIndex(1);
      const auto& samples = form.cmbElement.Items();
      form.cmbElement.SetIndex(
          static_cast<int>(std::find(samples.begin(), samples.end(), sample) - samples.begin()));
      form.cmdCal.Press();
      dialogs.ExpectSave({});
      form.cmdExit.Press();
    });
    form.Open(program->view.GraphNo);
    return folder.Get("crystalfit.csv");
  }

  std::string LogOfBatch(const std::string& spectrum, const std::string& sample, bool marker) {
    std::vector<std::string> words{"analyse", spectrum,   "--crystal", sample,     "--fit-on",
                                   "raw",     "--judge",  "0.03",      "--reject", "0",
                                   "--log",   "work.csv", "--quiet"};
    if (marker) words.push_back("--marker");
    EXPECT_EQ(Run(words).status, 0);
    return folder.Get("work.csv");
  }
};

TEST_F(AnalyseLogTest, SampleIsToldByteForByteAsByTheForm) {
  const std::string log = LogOfBatch("samples/corundum_ambient.npd", "Al2O3", false);
  EXPECT_NE(log.find("HEXAGONAL"), std::string::npos);
  EXPECT_EQ(log, LogOfForm("samples/corundum_ambient.npd", "Al2O3", false));
}

TEST_F(AnalyseLogTest, MarkerIsToldByteForByteAsByTheForm) {
  const std::string log = LogOfBatch("samples/gold_ambient.npd", "Au", true);
  EXPECT_NE(log.find("ANDERSON SCALE AT T=27.0"), std::string::npos);
  EXPECT_EQ(log, LogOfForm("samples/gold_ambient.npd", "Au", true));
}

}  // namespace
}  // namespace dorvane
