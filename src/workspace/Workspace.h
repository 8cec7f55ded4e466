// The store of everything that is open: the list of graphs, the stored spectra behind it, and the
// tables that all operations address by number.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "support/Fixed.h"
#include "support/Surface.h"
#include "workspace/FitParamSet.h"
#include "workspace/PeakRec.h"
#include "workspace/RoiRec.h"
#include "workspace/SpectrumRec.h"

namespace dorvane {

constexpr int kWindows = 2;       // WinNo 0..1
constexpr int kRows = 10;         // GrpNo 0..9
constexpr int kSpectra = 14;      // DataNo 0..13
constexpr int kFreeSpectra = 10;  // DataNo 0..9 are handed out
constexpr int kColors = 41;
constexpr std::size_t kDisplayDefaultsSize = 3536;

// Values of GraphSlot::State.
constexpr std::int16_t kRowEmpty = 0;
constexpr std::int16_t kRowSaved = 1;
constexpr std::int16_t kRowUnsaved = 2;

// Titles of derived graphs; any other title is a raw graph.
constexpr const char* kTitleSmooth = "Smooth";
constexpr const char* kTitleBackGraund = "BackGraund";
constexpr const char* kTitleBackRemv = "BackRemv";
constexpr const char* kTitleFit = "Fit";

// One row of the list: a curve with its title, colour, window and show/hide switch.
struct GraphSlot {
  std::int16_t State = kRowEmpty;
  std::int16_t WinNo = 0;
  std::int16_t DataNo = 0;
  std::int16_t Disp = 0;  // -1 shown, 0 hidden
  std::string Title;      // kind keyword, or the file name with extension of a raw graph
  dorvane::Color Color = 0;

  friend bool operator==(const GraphSlot&, const GraphSlot&) = default;
};

using ColorTable = Fixed<Color, 0, kColors - 1>;

// Linear 2-theta scale of an angle-dispersive spectrum: DacAngleSlope * index + DacAngleOffset
// degrees.
struct DacAngles {
  double DacAngleSlope = 0;
  double DacAngleOffset = 0;
};

constexpr int kFitBackChannels = 4096;

// The background under the peaks of a Nax fit, by channel index; 0 where no peak is.
using FitBackTable = Fixed<std::int32_t, 0, kFitBackChannels - 1>;

// About 0.6 megabyte: it lives on the heap, in the Program.
struct Workspace {
  Fixed<GraphSlot, 0, kRows - 1> Slots;
  Fixed<SpectrumRec, 0, kSpectra - 1> Spectra;
  Fixed<ChannelBlock, 0, kSpectra - 1> Channels;
  Fixed<PeakTable, 0, kSpectra - 1> Peaks;
  RoiTable Regions;
  FitBackTable FitBack;  // of the last fit; zeros after an Express fit and where a spectrum is read

  std::int16_t GrpCount = 0;                         // rows in use
  Fixed<std::int16_t, 0, kFreeSpectra - 1> DataUse;  // -1 taken, 0 free, by DataNo
  std::int16_t MaxCh = 4096;  // largest channel count read so far; never lowered
  ColorTable ColorTbl;
  std::string CurDrive;  // of the last file; empty where a system has no drives
  std::string CurDir;    // of the last file, with its closing slash
  std::string UserDataDir;
  std::int16_t LastDataType = 0;

  MeasProp DefaultProp;          // defaults of new spectra, among them the default calibration
  MeasProp LastProp;             // kept by the property form between spectra
  std::int32_t PresetCount = 0;  // default of a measurement that ends at a number of counts
  FitParamSet FitParam;
  std::array<char, kDisplayDefaultsSize> DisplayDefaults{};  // only carried, as FitParam's tail
  std::int16_t SkipLastProp = 0;  // other than 0: the parameter file ends before LastProp
  AnalysisSettings Settings;
  std::int16_t FilterIndex = 1;  // the filter last chosen in the file dialog, from 1
  DacAngles Dac;
  std::int16_t UseFileEgc = 0;  // 0: DefaultProp calibrates, else the spectrum's own MeasProp
  std::int16_t ExpressFit = 0;  // 1: the Express family fits, 0: the Nax family
  // -1 from the first opening of frmManualFit until it is closed by its frame; hidden, it counts as
  // open.
  std::int16_t ManualFitOpen = 0;
  std::int16_t DotSize = 0;  // of the curves on paper; 0 before it is first asked for
};

// The calibration source that UseFileEgc picks for a spectrum.
inline const MeasProp& CalibrationOf(const Workspace& workspace, int data_no) {
  return workspace.UseFileEgc == 0 ? workspace.DefaultProp : workspace.Spectra[data_no].Prop;
}

// Record, counts and peak table: the three things that are always copied together.
inline void CopySpectrum(Workspace& workspace, int from, int to) {
  workspace.Spectra[to] = workspace.Spectra[from];
  workspace.Channels[to] = workspace.Channels[from];
  workspace.Peaks[to] = workspace.Peaks[from];
}

}  // namespace dorvane
