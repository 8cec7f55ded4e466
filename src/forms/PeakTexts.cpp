#include "forms/PeakTexts.h"

#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr double kHighestChannel = 8192;

}  // namespace

std::optional<double> ChannelNumberOf(std::string_view text) {
  const auto number = ParseNumber(text);
  if (!number || *number < 0 || *number > kHighestChannel) return {};
  return number;
}

std::optional<std::int32_t> CursorCount(const Program& program, int data_no) {
  const ChannelBlock& block = program.workspace.Channels[data_no];
  const int channel = program.view.CursorCh;
  if (channel < 0 || channel >= block.Count) return {};
  return block.Counts[channel];
}

}  // namespace dorvane
