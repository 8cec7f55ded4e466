// A number that tells two states of the store apart.
#pragma once

#include <cstdint>
#include <cstring>

#include "program/Program.h"

namespace dorvane {

inline std::uint64_t Digest(const Program& program) {
  std::uint64_t digest = 14695981039346656037u;  // FNV-1a
  const auto add = [&digest](const auto& value) {
    unsigned char bytes[sizeof value];
    std::memcpy(bytes, &value, sizeof value);
    for (const unsigned char byte : bytes) digest = (digest ^ byte) * 1099511628211u;
  };
  const Workspace& workspace = program.workspace;
  for (const GraphSlot& slot : workspace.Slots) {
    for (const char c : slot.Title) add(c);
    for (const int each : {slot.State, slot.WinNo, slot.DataNo, slot.Disp}) add(each);
    add(slot.Color);
  }
  for (int data_no = 0; data_no < kSpectra; ++data_no) {
    for (const std::int32_t count : workspace.Channels[data_no].Used()) add(count);
    for (int i = 0; i < workspace.Peaks[data_no].Count; ++i) {
      add(workspace.Peaks[data_no].Peaks[i].Center);
      add(workspace.Peaks[data_no].Peaks[i].Height);
    }
  }
  for (int i = 0; i < workspace.Regions.RoiCount; ++i) add(workspace.Regions.Rois[i].Total);
  const ViewState& view = program.view;
  for (const double each : {view.StartCh, view.SpanCh, view.CursorExact}) add(each);
  for (const int each : {view.CurWin, view.GraphNo, view.DataNo, view.CursorCh}) add(each);
  add(view.HeightY);
  return digest;
}

}  // namespace dorvane
