// The faults that came up in boxes: which of them the system lets pass to the user.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "forms/MonkeyPorts.h"
#include "processing/Calc.h"
#include "program/PeakFit.h"
#include "program/Program.h"
#include "support/Fault.h"

namespace dorvane {

inline bool IsFault(const std::string& box) {
  constexpr std::array kCodes{
      FaultCode::BadArgument,    FaultCode::Overflow,   FaultCode::Subscript,
      FaultCode::DivisionByZero, FaultCode::NotANumber, FaultCode::FileNotFound,
      FaultCode::FileFailed,     FaultCode::EndOfFile,  FaultCode::PermissionDenied};
  const auto is = [&box](FaultCode code) { return box.starts_with(FaultText(code)); };
  return std::any_of(kCodes.begin(), kCodes.end(), is) || box.find("::") != std::string::npos;
}

// Counts and peaks that no 16 or 32 bits hold once they are worked on.
inline bool HoldsHuge(const Workspace& workspace, int data_no) {
  constexpr double kMostCounts = 1e9;
  const auto counts = workspace.Channels[data_no].Used();
  const PeakTable& table = workspace.Peaks[data_no];
  return std::any_of(counts.begin(), counts.end(),
                     [](std::int32_t each) { return std::fabs(each) > kMostCounts; }) ||
         std::any_of(table.Peaks.begin(), table.Peaks.begin() + table.Count,
                     [](const PeakRec& peak) {
                       return !(std::fabs(peak.Center) + 2 * std::fabs(peak.HalfWidth) < 32767);
                     });
}

// The valley between two peaks is not to be found where the left one lies in the first channel.
inline bool HoldsPeakInFrontOf1(const PeakTable& table) {
  return std::any_of(table.Peaks.begin(), table.Peaks.begin() + table.Count,
                     [](const PeakRec& peak) { return peak.Center <= 0.5; });
}

// A peak as it can be typed and no spectrum has one: without height or width, or wider than the
// spectrum about its centre.
inline bool HoldsPeakOfNoLine(const Workspace& workspace, int data_no) {
  const PeakTable& table = workspace.Peaks[data_no];
  const int last = workspace.Channels[data_no].Count - 1;
  return std::any_of(
      table.Peaks.begin(), table.Peaks.begin() + table.Count, [last](const PeakRec& peak) {
        return !(peak.Height > 0) || !(peak.HalfWidth > 0) ||
               peak.Center - 2 * peak.HalfWidth < 0 || peak.Center + 2 * peak.HalfWidth > last;
      });
}

class NoDialogs : public Dialogs {
 public:
  void Message(std::string_view) override {}
  void CaptionedMessage(std::string_view, std::string_view) override {}
  bool AskYesNo(const Question&) override { return false; }
  std::optional<FilesChoice> ChooseFilesToOpen(const FileRequest&) override { return {}; }
  std::optional<FileChoice> ChooseFileToSave(const FileRequest&) override { return {}; }
  std::optional<Color> ChooseColor(Color) override { return {}; }
};

// Whether a peak of the spectrum is such that its fit faults, which has left it as it was: it is
// fitted anew in a program of its own.
inline bool HoldsPeakWhoseFitFaults(const Program& program) {
  const Workspace& workspace = program.workspace;
  const std::int16_t data_no = program.view.DataNo;
  const std::int16_t type = workspace.FitParam.FuncType;
  NoDialogs dialogs;
  const Ports& ports = program.ports;
  const auto other = std::make_unique<Program>(
      Ports{dialogs, ports.files, ports.log, ports.progress, ports.listener}, "");
  other->workspace = workspace;
  for (int i = 0; i < workspace.Peaks[data_no].Count; ++i) {
    try {
      FitOnePeak(*other, data_no, i, type, ToInt16(type == kMix ? 5 : 4));
    } catch (const Fault&) {
      return true;
    }
  }
  return false;
}

// Faults that pass to the user: a file that can't be opened to save, a peak or a count of a file
// that no measurement gives, a peak whose fit faults, a smoothing that the parameter file has and
// the program hasn't, an interval of the background that divides 8192 channels, borders of a peak
// in the first channel, the fit and the borders of a typed peak that is no line; graph arithmetic
// beyond 32 bits; a cell of the calibration's table that is no number; a crystal library that can't
// be read.
inline bool IsStated(const Program& program, const Happened& happened, const std::string& box) {
  const auto is = [&box](FaultCode code) { return box.starts_with(FaultText(code)); };
  if (box.find(kLibraryName) != std::string::npos) {
    return !happened.library_whole || happened.files_unsure;
  }
  if (is(FaultCode::NotANumber)) return happened.calibrating;
  if (is(FaultCode::FileNotFound) || is(FaultCode::FileFailed) || is(FaultCode::PermissionDenied)) {
    return happened.saving;
  }
  const Workspace& workspace = program.workspace;
  if (is(FaultCode::Overflow)) {
    return happened.calculating || HoldsHuge(workspace, program.view.DataNo) ||
           HoldsPeakWhoseFitFaults(program);
  }
  const bool no_line = HoldsPeakOfNoLine(workspace, program.view.DataNo);
  if (is(FaultCode::DivisionByZero)) return no_line || HoldsPeakWhoseFitFaults(program);
  if (!is(FaultCode::Subscript)) return false;
  const FitParamSet& settings = workspace.FitParam;
  const bool divides = settings.BackInterval > 0 && kMaxChannels % settings.BackInterval == 0;
  return settings.SmoothKind < 0 || settings.SmoothKind >= kSmoothKinds ||
         (divides && workspace.Channels[program.view.DataNo].Count == kMaxChannels) ||
         HoldsPeakInFrontOf1(workspace.Peaks[program.view.DataNo]) || no_line;
}

}  // namespace dorvane
