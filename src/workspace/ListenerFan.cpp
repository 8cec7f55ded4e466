#include "workspace/ListenerFan.h"

#include <cstddef>

namespace dorvane {

template <typename... Parameters, typename... Arguments>
void ListenerFan::Tell(void (WorkspaceListener::*notice)(Parameters...),
                       const Arguments&... arguments) {
  const std::size_t count = listeners_.size();
  for (std::size_t i = 0; i < count; ++i) (listeners_[i]->*notice)(arguments...);
}

void ListenerFan::SelectorFilled() {
  Tell(&WorkspaceListener::SelectorFilled);
}
void ListenerFan::SelectorRowSelected(int WinNo, int GrpNo) {
  Tell(&WorkspaceListener::SelectorRowSelected, WinNo, GrpNo);
}
void ListenerFan::CheckBoxesFilled() {
  Tell(&WorkspaceListener::CheckBoxesFilled);
}
void ListenerFan::SelectionListFilled() {
  Tell(&WorkspaceListener::SelectionListFilled);
}
void ListenerFan::SelectionRowCleared(int GrpNo) {
  Tell(&WorkspaceListener::SelectionRowCleared, GrpNo);
}
void ListenerFan::SpectrumShown(int WinNo, int DataNo) {
  Tell(&WorkspaceListener::SpectrumShown, WinNo, DataNo);
}
void ListenerFan::SpectrumRemoved(int WinNo, int DataNo) {
  Tell(&WorkspaceListener::SpectrumRemoved, WinNo, DataNo);
}
void ListenerFan::CurveMade(int DataNo, int source) {
  Tell(&WorkspaceListener::CurveMade, DataNo, source);
}
void ListenerFan::GraphShown(int WinNo, int DataNo, bool shown) {
  Tell(&WorkspaceListener::GraphShown, WinNo, DataNo, shown);
}
void ListenerFan::GraphRecolored(int WinNo, int DataNo, Color color) {
  Tell(&WorkspaceListener::GraphRecolored, WinNo, DataNo, color);
}
void ListenerFan::FileRead(std::string_view path) {
  Tell(&WorkspaceListener::FileRead, path);
}
void ListenerFan::FileWritten(std::string_view path) {
  Tell(&WorkspaceListener::FileWritten, path);
}
void ListenerFan::FileNotRead(std::string_view path) {
  Tell(&WorkspaceListener::FileNotRead, path);
}
void ListenerFan::FileNotWritten(std::string_view path) {
  Tell(&WorkspaceListener::FileNotWritten, path);
}
void ListenerFan::PeakMarked(int WinNo, int DataNo, const PeakRec& peak) {
  Tell(&WorkspaceListener::PeakMarked, WinNo, DataNo, peak);
}
void ListenerFan::PeakUnmarked(int WinNo, int DataNo, const PeakRec& peak) {
  Tell(&WorkspaceListener::PeakUnmarked, WinNo, DataNo, peak);
}
void ListenerFan::PeakLinesCleared(int WinNo) {
  Tell(&WorkspaceListener::PeakLinesCleared, WinNo);
}
void ListenerFan::PointMarksCleared(int WinNo, int DataNo) {
  Tell(&WorkspaceListener::PointMarksCleared, WinNo, DataNo);
}
void ListenerFan::RoiMarked(int WinNo, int DataNo, int start, int end, Color color) {
  Tell(&WorkspaceListener::RoiMarked, WinNo, DataNo, start, end, color);
}
void ListenerFan::RoiUnmarked(int WinNo, int DataNo, int start, int end, Color color) {
  Tell(&WorkspaceListener::RoiUnmarked, WinNo, DataNo, start, end, color);
}
void ListenerFan::RegionsChanged() {
  Tell(&WorkspaceListener::RegionsChanged);
}
void ListenerFan::WindowCleared(int WinNo) {
  Tell(&WorkspaceListener::WindowCleared, WinNo);
}
void ListenerFan::RedrawWanted(int WinNo) {
  Tell(&WorkspaceListener::RedrawWanted, WinNo);
}
void ListenerFan::WindowStyleChanged() {
  Tell(&WorkspaceListener::WindowStyleChanged);
}
void ListenerFan::WindowActivated(int WinNo) {
  Tell(&WorkspaceListener::WindowActivated, WinNo);
}
void ListenerFan::UnitAxisChanged() {
  Tell(&WorkspaceListener::UnitAxisChanged);
}
void ListenerFan::CountScaleChanged(int WinNo) {
  Tell(&WorkspaceListener::CountScaleChanged, WinNo);
}
void ListenerFan::RangeChanged() {
  Tell(&WorkspaceListener::RangeChanged);
}
void ListenerFan::CursorMoved() {
  Tell(&WorkspaceListener::CursorMoved);
}
void ListenerFan::CalibrationShown() {
  Tell(&WorkspaceListener::CalibrationShown);
}
void ListenerFan::CaptionChanged() {
  Tell(&WorkspaceListener::CaptionChanged);
}
void ListenerFan::ButtonsChanged() {
  Tell(&WorkspaceListener::ButtonsChanged);
}
void ListenerFan::PointerChanged() {
  Tell(&WorkspaceListener::PointerChanged);
}
void ListenerFan::DataTypeShown() {
  Tell(&WorkspaceListener::DataTypeShown);
}

}  // namespace dorvane
