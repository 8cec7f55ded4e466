#include "forms/frmRoiReport.h"

#include <string>

#include "processing/RoiOpe.h"
#include "program/Cursor.h"
#include "support/NumberText.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr const char* kWhole = "#0";

enum Column { kGraph = 1, kStart, kEnd, kAmplitude, kPeak, kIntensity };

std::string GraphNumber(const Workspace& workspace, int data_no) {
  for (int grp_no = 0; grp_no < kRows; ++grp_no) {
    const GraphSlot& slot = workspace.Slots[grp_no];
    if (slot.State != kRowEmpty && slot.DataNo == data_no) return std::to_string(grp_no + 1);
  }
  return {};
}

std::string ChannelNumber(double index) {
  return Picture(index + 1, kWhole);
}

}  // namespace

frmRoiReport::frmRoiReport(Program& program, FormHost& host)
    : Form(host, "frmRoiReport", "ROI Report"),
      sprRoiInf(controls_, "sprRoiInf",
                {"Graph", "Start (Ch)", "End (Ch)", "Amplitude", "Peak (Ch)", "Intensity"}),
      lblMaxRoi(controls_, "lblMaxRoi", "Max ROI = 10"),
      cmdOk(controls_, "cmdOk", "O K"),
      program_(program) {
  sprRoiInf.Click.Connect([this](int row, int column) { sprRoiInf_Click(row, column); });
  cmdOk.Click.Connect([this] { cmdOk_Click(); });
}

void frmRoiReport::RefreshRoiReport() {
  Workspace& workspace = program_.workspace;
  const RoiTable& table = workspace.Regions;
  sprRoiInf.SetMaxRows(table.RoiCount);
  for (int i = 0; i < table.RoiCount; ++i) {
    RoiCalc(workspace, i);
    const RoiRec& roi = table.Rois[i];
    const int row = i + 1;
    sprRoiInf.SetText(row, kGraph, GraphNumber(workspace, roi.DataNo));
    sprRoiInf.SetText(row, kStart, ChannelNumber(roi.Start));
    sprRoiInf.SetText(row, kEnd, ChannelNumber(roi.End));
    sprRoiInf.SetText(row, kAmplitude, Picture(roi.Total, kWhole));
    sprRoiInf.SetText(row, kPeak, ChannelNumber(roi.PeakCh));
    sprRoiInf.SetText(row, kIntensity, Picture(roi.PeakVal, kWhole));
  }
}

void frmRoiReport::Open() {
  RefreshRoiReport();
  Show();
}

void frmRoiReport::sprRoiInf_Click(int row, int column) {
  const RoiTable& table = program_.workspace.Regions;
  const int index = row - 1;
  if (index < 0 || index >= table.RoiCount) return;
  const RoiRec& roi = table.Rois[index];
  switch (column) {
    case kStart:
      CsrX_Change(program_, roi.Start);
      break;
    case kEnd:
      CsrX_Change(program_, roi.End);
      break;
    default:
      CsrX_Change(program_, RoundToInt16(roi.PeakCh));
      break;
  }
}

}  // namespace dorvane
