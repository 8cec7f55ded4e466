#include "fitting/NaxScan.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr std::size_t kAboutCentre = 2;     // the greatest count is sought so far on either side
constexpr std::size_t kKeptForWindow = 20;  // with the next point they fill a window
constexpr int kLeadBeyondReach = 10;
constexpr int kRunAllowance = 2;

std::size_t AtLeastZero(std::int64_t points) {
  return static_cast<std::size_t>(std::max<std::int64_t>(points, 0));
}

}  // namespace

SpectrumScan::SpectrumScan(std::span<const std::int32_t> counts, const ScanControl& control,
                           Progress& progress)
    : counts_(counts),
      control_(control),
      progress_(progress),
      parabola_(control.ScanInt[kHalfWindow], control.ScanReal[kSmallest]),
      next_channel_(control.ScanInt[kFirstChannel]) {
  const int last = control.ScanInt[kLastChannel];
  if (next_channel_ < 1 || last > static_cast<int>(counts.size())) {
    throw Fault(FaultCode::Subscript);
  }
  results_.reserve(kMaxScanResults + kMaxGroupPeaks);
}

SpectrumScan::ReadStatus SpectrumScan::ReadPoints() {
  const int left = control_.ScanInt[kLastChannel] - next_channel_ + 1;
  const int count = std::clamp(left, 0, kPointsPerRead);
  if (held_ + AtLeastZero(count) > kBufferPoints) {
    end_ = ScanEnd::TooManyPoints;
    return ReadStatus::End;
  }
  for (int i = 0; i < count; ++i, ++next_channel_) {
    DataX[held_] = next_channel_;
    DataY[held_++] = counts_[static_cast<std::size_t>(next_channel_ - 1)];
  }
  return left > count ? ReadStatus::More : ReadStatus::End;
}

void SpectrumScan::ScanBlock(ReadStatus more) {
  while (scanned_ < held_ && end_ == ScanEnd::Complete) {
    ++scanned_;
    if (RunParabola()) FitPending(ReachOf(pending_[pending_count_ - 1]));
  }
  const bool at_end = more == ReadStatus::End && end_ == ScanEnd::Complete;
  if (at_end && pending_count_ > 0) FitPending(ReachOf(pending_[pending_count_ - 1]));
}

// Tests the window that ends with the newest point. True when the pending peaks are to be fitted.
bool SpectrumScan::RunParabola() {
  const auto half = static_cast<std::size_t>(control_.ScanInt[kHalfWindow]);
  const std::size_t points = 2 * half + 1;
  if (scanned_ < points) return false;
  const std::size_t centre = scanned_ - 1 - half;
  const std::span<const double> y(DataY);
  const WindowParabola window = parabola_.Fit(y.subspan(scanned_ - points, points));
  const double spacing = std::abs(DataX[centre + 1] - DataX[centre - 1]);
  if (ShowsPeak(window, spacing, control_)) {
    const auto about = y.subspan(centre - kAboutCentre, 2 * kAboutCentre + 1);
    run_.Extend(window, DataX[centre], std::ranges::max(about));
    return false;
  }
  // A shorter run stays open: the next windows that show a peak are counted with it.
  if (run_.Length() > 0 && run_.Length() >= control_.ScanInt[kRunBase] - kRunAllowance) {
    Record(spacing);
  }
  ++quiet_;
  const int reach = control_.ScanInt[kGroupReach];
  if (pending_count_ > 0) return quiet_ > reach;
  const int kept = std::max(reach + kLeadBeyondReach, static_cast<int>(kKeptForWindow));
  Drop(AtLeastZero(static_cast<std::int64_t>(scanned_) - kept));
  return false;
}

// A tenth peak does not fit into the group: the nine are fitted without it, over the points up to
// half way between.
void SpectrumScan::Record(double spacing) {
  const ScanPeak peak = run_.Peak(spacing, control_);
  run_.Close();
  if (pending_count_ == pending_.size()) {
    const ScanPeak& last = pending_.back();
    const double half_way = std::floor((last.channel + peak.channel) / 2);
    FitPending(std::min(ReachOf(last), AtLeastZero(std::llround(half_way - DataX[0]) + 1)));
  }
  pending_[pending_count_++] = peak;
  quiet_ = 0;
}

// Points up to the channel where a group that ends with this peak is closed.
std::size_t SpectrumScan::ReachOf(const ScanPeak& peak) const {
  const auto place = std::llround(peak.channel - DataX[0]) + 1;
  return std::min(AtLeastZero(place + control_.ScanInt[kGroupReach]), scanned_);
}

void SpectrumScan::FitPending(std::size_t block) {
  const GroupFitResult group = GroupFit(std::span(DataX).first(block),
                                        std::span(DataY).first(block), Pending(), control_, work_);
  pending_count_ = 0;
  results_.insert(results_.end(), group.Peaks().begin(), group.Peaks().end());
  if (results_.size() > kMaxScanResults) end_ = ScanEnd::TooManyResults;
  progress_.Report(next_channel_ - 1, control_.ScanInt[kLastChannel]);
  if (progress_.Cancelled()) end_ = ScanEnd::Stopped;
  Drop(std::min(block, scanned_ - std::min(scanned_, kKeptForWindow)));
}

void SpectrumScan::Drop(std::size_t points) {
  if (points == 0) return;
  const auto shift = [&](auto& data) {
    std::copy(data.begin() + static_cast<std::ptrdiff_t>(points),
              data.begin() + static_cast<std::ptrdiff_t>(held_), data.begin());
  };
  shift(DataX);
  shift(DataY);
  held_ -= points;
  scanned_ -= points;
  // A short run is forgotten when its best point leaves.
  if (run_.Length() > 0 && (held_ == 0 || run_.Channel() < DataX[0])) run_.Close();
}

ScanResult ScanSpectrum(std::span<const std::int32_t> counts, const ScanControl& control,
                        Progress& progress) {
  const auto scan = std::make_unique<SpectrumScan>(counts, control, progress);
  auto more = SpectrumScan::ReadStatus::More;
  while (more == SpectrumScan::ReadStatus::More && scan->End() == ScanEnd::Complete) {
    more = scan->ReadPoints();
    if (scan->End() == ScanEnd::Complete) scan->ScanBlock(more);
  }
  ScanResult result;
  result.end = scan->End();
  result.peaks = scan->TakeResults();
  return result;
}

}  // namespace dorvane
