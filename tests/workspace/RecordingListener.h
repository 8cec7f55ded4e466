// A listener that writes down what it is told, one word per notice.
#pragma once

#include <string>
#include <vector>

#include "workspace/PeakRec.h"
#include "workspace/WorkspaceListener.h"

namespace dorvane {

class RecordingListener : public WorkspaceListener {
 public:
  std::vector<std::string> notices;

  // How often a notice came.
  int Count(const std::string& notice) const {
    int count = 0;
    for (const std::string& each : notices) count += each == notice ? 1 : 0;
    return count;
  }

  void SelectorFilled() override { notices.push_back("selector"); }
  void SelectorRowSelected(int win, int row) override { Put("selected", win, row); }
  void CheckBoxesFilled() override { notices.push_back("checks"); }
  void SelectionListFilled() override { notices.push_back("list"); }
  void SelectionRowCleared(int row) override { Put("row cleared", row); }
  void SpectrumShown(int win, int data) override { Put("shown", win, data); }
  void SpectrumRemoved(int win, int data) override { Put("removed", win, data); }
  void CurveMade(int data, int source) override { Put("made", data, source); }
  void GraphShown(int win, int data, bool shown) override { Put(shown ? "on" : "off", win, data); }
  void GraphRecolored(int win, int data, Color) override { Put("colour", win, data); }
  void FileRead(std::string_view path) override { PutPath("read", path); }
  void FileWritten(std::string_view path) override { PutPath("written", path); }
  void FileNotRead(std::string_view path) override { PutPath("not read", path); }
  void FileNotWritten(std::string_view path) override { PutPath("not written", path); }
  void PeakMarked(int win, int data, const PeakRec&) override { Put("peak", win, data); }
  void PeakUnmarked(int win, int data, const PeakRec&) override { Put("no peak", win, data); }
  void PeakLinesCleared(int win) override { Put("no peak lines", win); }
  void PointMarksCleared(int win, int data) override { Put("no point marks", win, data); }
  void RoiMarked(int win, int data, int start, int end, Color) override {
    PutRange("region", win, data, start, end);
  }
  void RoiUnmarked(int win, int data, int start, int end, Color) override {
    PutRange("no region", win, data, start, end);
  }
  void RegionsChanged() override { notices.push_back("regions"); }
  void WindowCleared(int win) override { Put("cleared", win); }
  void RedrawWanted(int win) override { Put("redraw", win); }
  void WindowStyleChanged() override { notices.push_back("style"); }
  void WindowActivated(int win) override { Put("active", win); }
  void UnitAxisChanged() override { notices.push_back("axis"); }
  void CountScaleChanged(int win) override { Put("scale", win); }
  void RangeChanged() override { notices.push_back("range"); }
  void CursorMoved() override { notices.push_back("cursor"); }
  void CalibrationShown() override { notices.push_back("calibration"); }
  void CaptionChanged() override { notices.push_back("caption"); }
  void ButtonsChanged() override { notices.push_back("buttons"); }
  void PointerChanged() override { notices.push_back("pointer"); }
  void DataTypeShown() override { notices.push_back("data type"); }

 private:
  void Put(const char* name, int number) {
    notices.push_back(std::string(name) + " " + std::to_string(number));
  }
  void Put(const char* name, int number, int second) {
    Put(name, number);
    notices.back() += " " + std::to_string(second);
  }
  void PutPath(const char* name, std::string_view path) {
    notices.push_back(std::string(name) + " " + std::string(path));
  }
  void PutRange(const char* name, int win, int data, int start, int end) {
    Put(name, win, data);
    notices.back() += " " + std::to_string(start) + ".." + std::to_string(end);
  }
};

}  // namespace dorvane
