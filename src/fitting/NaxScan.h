// The scan of a whole spectrum: peaks are found by a parabola that slides over the counts, and
// fitted in groups of neighbours as they come.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "fitting/NaxGroupFit.h"
#include "fitting/NaxParabola.h"
#include "fitting/NaxPeak.h"
#include "fitting/NaxScanSetup.h"
#include "support/Progress.h"

namespace dorvane {

inline constexpr int kMaxScanChannels = 4096;
inline constexpr int kMaxScanResults = 100;

enum class ScanEnd {
  Complete,       // the last channel has been reached
  TooManyPoints,  // peaks that follow each other without a gap filled the buffer; those before stay
  TooManyResults,  // more than 100 peaks
  Stopped,         // by the user
};

struct ScanResult {
  ScanEnd end = ScanEnd::Complete;
  std::vector<NaxPeak> peaks;  // in the order of the groups; those of a group as they were found
};

// Scans the channels ScanInt(9)..ScanInt(10) of a spectrum; counts[0] is channel 1. Progress is
// told after each group, in channels. Always ends. Throws Fault(Subscript) for channels that
// `counts` doesn't have.
ScanResult ScanSpectrum(std::span<const std::int32_t> counts, const ScanControl& control,
                        Progress& progress);

// The scan in its steps. The points at hand are a window on the spectrum: they are read ten at a
// time and dropped when no peak needs them any more. About 290 KB: make it on the heap.
class SpectrumScan {
 public:
  static constexpr int kBufferPoints = 500;
  static constexpr int kPointsPerRead = 10;

  // The numbers are the system's own.
  enum class ReadStatus { End = 0, More = 2 };

  // Keeps references to all three.
  SpectrumScan(std::span<const std::int32_t> counts, const ScanControl& control,
               Progress& progress);

  // Copies up to ten further channels; beyond 500 points it leaves them and sets End().
  ReadStatus ReadPoints();
  // Scans the points that have been read since. At the end of the spectrum (More no longer true)
  // the pending peaks are fitted; a run that is still open is no peak.
  void ScanBlock(ReadStatus more);

  // Complete as long as nothing has ended the scan early.
  ScanEnd End() const { return end_; }
  std::vector<NaxPeak> TakeResults() { return std::move(results_); }

  // Channels of the points at hand.
  std::span<const double> Held() const { return std::span(DataX).first(held_); }
  // Peaks that are found, but not fitted yet.
  std::span<const ScanPeak> Pending() const { return std::span(pending_).first(pending_count_); }
  int Quiet() const { return quiet_; }

 private:
  bool RunParabola();
  void Record(double spacing);
  void FitPending(std::size_t block);
  std::size_t ReachOf(const ScanPeak& peak) const;
  void Drop(std::size_t points);

  std::span<const std::int32_t> counts_;
  const ScanControl& control_;
  Progress& progress_;
  SlidingParabola parabola_;
  GroupFitWork work_;
  std::array<double, kBufferPoints> DataX{};  // channel numbers
  std::array<double, kBufferPoints> DataY{};  // counts
  std::size_t held_ = 0;
  std::size_t scanned_ = 0;  // of the points held
  int next_channel_;
  PeakRun run_;
  int quiet_ = 0;  // windows that show no peak, since the last peak was recorded
  std::array<ScanPeak, kMaxGroupPeaks> pending_;
  std::size_t pending_count_ = 0;
  std::vector<NaxPeak> results_;
  ScanEnd end_ = ScanEnd::Complete;
};

}  // namespace dorvane
