#include "display/ViewScale.h"

#include <algorithm>
#include <cmath>

namespace dorvane {
namespace {

constexpr int kSegmentsAimed = 512;

}  // namespace

LogTable::LogTable() {
  for (std::size_t count = 1; count < kSize; ++count) {
    logs_[count] = std::log10(static_cast<double>(count));
  }
}

HeightMap::HeightMap(const ViewScale& scale, const PrintSettings& print, const LogTable* logs)
    : logs_(logs),
      logarithmic_(scale.YMode == kLogarithmic),
      downwards_(print.PrintMode != kFalse),
      max_(scale.MaxY),
      bottom_(downwards_ ? scale.MaxY : scale.MinY),
      top_(downwards_ ? scale.MinY : scale.MaxY) {}

double HeightMap::Log(std::int32_t count) const {
  if (count <= 0) return 0;
  if (logs_ != nullptr && logs_->Has(count)) return logs_->Of(count);
  return std::log10(static_cast<double>(count));
}

HeightMap::Height HeightMap::At(std::int32_t count) const {
  double value = logarithmic_ ? Log(count) : count;
  const bool cut = value > max_;
  if (cut) value = max_;
  return {downwards_ ? std::max(max_ - value, 0.0) : value, cut};
}

void ApplyScale(Surface& surface, const ViewScale& scale, const PrintSettings& print) {
  const HeightMap heights(scale, print);
  surface.SetScale(scale.StartX, heights.Top(), scale.EndX, heights.Bottom());
}

int CurveStep(const ViewScale& scale) {
  const int channels = scale.EndX - scale.StartX + 1;
  if (channels <= kSegmentsAimed) return 1;
  return RoundToInt32(static_cast<double>(channels) / kSegmentsAimed + 0.1);
}

std::int16_t WholeDecades(std::int32_t height) {
  std::int16_t decades = 0;
  for (; height >= 10; height /= 10) ++decades;
  return decades;
}

}  // namespace dorvane
