// The main job on one spectrum: read, smooth, find and fit peaks, index, refine, pressure. What it
// finds stays in a Program, from which its page is drawn.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "batch/BatchPorts.h"
#include "batch/OptionTexts.h"
#include "lattice/CrystalRec.h"
#include "lattice/LogRecord.h"
#include "program/LatticeRun.h"
#include "program/SpectrumPage.h"

namespace dorvane {

enum class FitOn { Raw, Smooth, Removed };
enum class FitEngine { Express, Nax };

struct AnalysisRequest {
  std::string crystal;  // name in the library; the spectrum's sample name decides where it is empty
  LatticeRequest lattice;  // all but the crystal
  FitOn fit_on = FitOn::Smooth;
  int smooth_kind = 1;      // 0..3; -1 none
  bool background = false;  // estimated although the fit does not need it
  std::int16_t back_interval = 20;
  std::int16_t back_times = 20;
  FitEngine engine = FitEngine::Nax;
  std::int16_t threshold = 10;        // Express engine: sensitivity of the search
  double bg_coefficient = 1;          // Nax engine: curvature that counts as noise
  double peak_width = 20;             // Nax engine: channels
  std::optional<double> judge_range;  // angstrom; widened from 0.03 as needed where none is given
  std::optional<ChannelSpan> range;
  bool log_scale = false;
  bool index = true;  // false: the peaks alone, whatever the sample is
};

// One fitted peak as it is listed.
struct ListedPeak {
  double index = 0;    // channel index from 0
  double channel = 0;  // channel number
  double energy_kev = 0;
  double d = 0;       // angstrom
  double height = 0;  // counts
  double fwhm_kev = 0;
  double area = 0;  // counts
  std::optional<LatticeLine> line;
};

struct Analysis {
  std::string path;
  std::string title;  // file name with extension
  std::string sample;
  int channels = 0;
  double two_theta_deg = 0;
  EgcCoef egc;
  FitEngine engine = FitEngine::Nax;
  std::vector<ListedPeak> peaks;
  bool indexed = false;  // a crystal was known
  LatticeMode mode = LatticeMode::Sample;
  LatticeReport lattice;
  double temperature_c = 0;
  LogRecords log;                      // of the lattice work; none where no crystal was known
  std::vector<std::string> notes;      // messages and hints, in their order
  std::optional<std::string> failure;  // why the cell or the pressure that was asked for is missing
};

// A spectrum under work and what has been found in it.
class AnalysisRun {
 public:
  // Does the whole job; `files` and `request` outlive the run. Throws BatchError where there is
  // nothing to show: an unreadable file, a fit that fails as a whole, lines that the crystal
  // doesn't have.
  AnalysisRun(FileLayer& files, const CrystalLibrary& library, const AnalysisRequest& request,
              const std::string& path);

  const Analysis& Result() const { return result_; }
  void Draw(double width, double height, const PanelMaker& make_panel);

 private:
  void Read();
  void Prepare();
  void FitByScan();
  void FitPeakByPeak();
  void LeaveOut(const Fault& fault, PeakTable& found);
  void Index(const CrystalLibrary& library);
  int CrystalIndex(const CrystalLibrary& library);
  LatticeReport RunWithin(double judge_range, const CrystalLibrary& library,
                          const LatticeRequest& request);
  LatticeReport RunWidening(const CrystalLibrary& library, const LatticeRequest& request);
  double IntensityInUse(const LatticeReport& lattice) const;
  void JudgeLattice();
  void ListPeaks();
  void TakeMessages();
  void ShowCurves();

  const AnalysisRequest& request_;
  FileLayer& files_;
  BatchPorts ports_;
  std::unique_ptr<Program> program_;
  int data_no_ = 0;                      // the spectrum whose peaks are fitted
  std::unique_ptr<LatticeState> state_;  // of the last run
  Analysis result_;
};

}  // namespace dorvane
