#include "forms/StatusHints.h"

#include <algorithm>
#include <filesystem>

#include "files/FileContext.h"
#include "files/FormatTable.h"
#include "files/SplitPath.h"

namespace dorvane {
namespace {

struct HintRow {
  std::string_view message;  // a part of it
  const char* hint;
};

constexpr HintRow kHints[] = {
    {"ShiftGraph: Data Notting!", "Open a spectrum first: Ctrl+O"},
    {"No Data", "Open a spectrum first: Ctrl+O"},
    {"ShiftGraph: List Over!", "All ten rows are in use: close a graph with Ctrl+W"},
    {"Para File Read",
     "First start: the default settings are in use, and kept when the program ends"},
    {"Open Error", "The file can't be read, is cut short or is no spectrum of its format"},
    {"intPeakNo=-1", "The peak table is full: a spectrum holds 100 peaks"},
    {"No of Peak > 100", "The peak table is full: a spectrum holds 100 peaks"},
    {"Peaks Cuted", "Peaks whose fit was not accepted have been removed"},
    {"File No Save.", "Yes drops what has changed, No keeps the data"},
    {"Fit Failed", "No fitted curve with its background is there: all ten rows in use, or no peak"},
    {"Fitting was failed", "A higher \"BG Coefficient\" takes more of the noise for background"},
    {"NO PEAKS ARE FOUND",
     "A lower \"BG Coefficient\" finds weaker peaks; ExpressFitting has a search of its own"},
};
constexpr std::string_view kNoSpace = "GetGraphSpace: Notting Space!";
constexpr const char* kNotWritten =
    "The file can't be written: it needs permission, and room on the disk";

// Numbers that are taken without a row, by files that could not be read or rows that were closed
// with their data kept.
std::ptrdiff_t LostNumbers(const Workspace& workspace) {
  const auto taken = std::count_if(workspace.DataUse.begin(), workspace.DataUse.end(),
                                   [](std::int16_t use) { return use != 0; });
  const auto shown = std::count_if(workspace.Slots.begin(), workspace.Slots.end(),
                                   [](const GraphSlot& slot) { return slot.State != kRowEmpty; });
  return taken - shown;
}

std::string FileName(const std::string& path) {
  return std::filesystem::path(path).filename().string();
}

bool HasReader(const std::string& path) {
  return CanRead(SplitPath(path).Ext);
}

std::string KindsOfSpectra() {
  return "Spectra end in " + ReadableKinds();
}

}  // namespace

std::string HintFor(std::string_view message, const Workspace& workspace, FileUse use) {
  if (use == FileUse::Write && message == kOpenError) return kNotWritten;
  if (message == kNoSpace) {
    const auto lost = LostNumbers(workspace);
    if (lost <= 0) return "All ten numbers are in use: close a graph with Ctrl+W";
    return std::to_string(lost) +
           " of the ten numbers are held by files that could not be read: start the program again "
           "to free them";
  }
  for (const HintRow& row : kHints) {
    if (message.find(row.message) != std::string_view::npos) return row.hint;
  }
  return {};
}

std::string NotReadText(const std::vector<std::string>& paths) {
  std::string text;
  for (const std::string& path : paths) {
    text += (text.empty() ? "Not read: " : ", ") + FileName(path);
  }
  if (!std::all_of(paths.begin(), paths.end(), HasReader)) text += ". " + KindsOfSpectra();
  return text;
}

std::string PeakSummary(const Program& program) {
  const PeakTable& table = program.workspace.Peaks[program.view.DataNo];
  const bool graph = program.workspace.Slots[program.view.GraphNo].State != kRowEmpty;
  if (!graph || table.Count == 0) return {};
  const auto fitted = std::count_if(table.Peaks.begin(), table.Peaks.begin() + table.Count,
                                    [](const PeakRec& peak) { return peak.FitDone != kFalse; });
  return std::to_string(table.Count) + (table.Count == 1 ? " peak, " : " peaks, ") +
         std::to_string(fitted) + " fitted";
}

}  // namespace dorvane
