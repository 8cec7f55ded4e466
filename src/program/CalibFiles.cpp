#include "program/CalibFiles.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "files/SplitPath.h"
#include "program/LineMarks.h"
#include "program/NaxRecords.h"
#include "program/OpenSave.h"

namespace dorvane {
namespace {

constexpr const char* kTooMany = "Can not open more file (Max=20)";
constexpr int kCurves = 4;  // smoothed, background, without background, fitted
constexpr int kNone = -1;

std::string NameOf(const std::string& path) {
  const PathParts parts = SplitPath(path);
  return parts.Ext.empty() ? parts.Name : parts.Name + "." + parts.Ext;
}

int NextRow(const Workspace& workspace) {
  int row = 0;
  while (row < kRows && HoldsGraph(workspace, row)) ++row;
  return row;
}

int FreeNumbers(const Workspace& workspace) {
  const auto& use = workspace.DataUse;
  return static_cast<int>(std::count(use.begin(), use.end(), std::int16_t{0}));
}

}  // namespace

std::vector<std::string> CalibFiles::Names() const {
  std::vector<std::string> names;
  for (const File& file : files_) names.push_back(NameOf(file.path));
  return names;
}

int CalibFiles::RowOf(int place) const {
  if (!Has(place)) return -1;
  const int data_no = files_[static_cast<std::size_t>(place)].data_no;
  return data_no < 0 ? -1 : RowOfSpectrum(program_.workspace, data_no);
}

bool CalibFiles::HasPlace() const {
  if (Count() < kMostCalibFiles) return true;
  program_.ports.dialogs.Message(kTooMany);
  return false;
}

bool CalibFiles::HasRoom() const {
  return NextRow(program_.workspace) < kRows && FreeNumbers(program_.workspace) > 0;
}

void CalibFiles::Open(const std::vector<std::string>& paths) {
  bool room = true;
  for (const std::string& path : paths) {
    if (!HasPlace()) return;
    File file{path};
    room = room && HasRoom();
    if (!room || Read(file)) files_.push_back(std::move(file));
  }
}

// A read empties the peak table of another spectrum than its own. Positions are taken from these
// tables: the other spectra keep theirs, and a number that was in use before brings none along. A
// failed read leaves its number taken; here that would take the room of the files behind it.
bool CalibFiles::Read(File& file) {
  Workspace& workspace = program_.workspace;
  const auto peaks_before = std::make_unique<decltype(workspace.Peaks)>(workspace.Peaks);
  const auto use_before = workspace.DataUse;
  const std::int16_t count_before = workspace.GrpCount;
  for (int i = 0; i < kFreeSpectra; ++i) {
    if (use_before[i] == 0) workspace.Peaks[i].Count = 0;
  }
  const int row = NextRow(workspace);
  const bool read = ReadGraph(program_, 0, row, file.path) == -1;
  for (int i = 0; i < kFreeSpectra; ++i) {
    if (use_before[i] != 0) workspace.Peaks[i] = (*peaks_before)[i];
  }
  if (!read) {
    workspace.DataUse = use_before;
    workspace.GrpCount = count_before;
    return false;
  }
  file.data_no = workspace.Slots[row].DataNo;
  file.used = ++uses_;
  return true;
}

int CalibFiles::LongestOutOfUse(int but_data_no) const {
  const Workspace& workspace = program_.workspace;
  int longest = kNone;
  for (int place = 0; place < Count(); ++place) {
    const int row = RowOf(place);
    if (row < 0 || workspace.Slots[row].State != kRowSaved) continue;
    if (workspace.Slots[row].DataNo == but_data_no) continue;
    const auto used = [this](int each) { return files_[static_cast<std::size_t>(each)].used; };
    if (longest == kNone || used(place) < used(longest)) longest = place;
  }
  return longest;
}

bool CalibFiles::MakeRoom(int but_data_no) {
  const int place = LongestOutOfUse(but_data_no);
  if (place != kNone) RemoveGraph(program_.List(), RowOf(place));
  return place != kNone;
}

void CalibFiles::MakeRoomForCurves() {
  for (int free = FreeNumbers(program_.workspace); free < kCurves; ++free) {
    if (!MakeRoom(program_.view.DataNo)) return;
  }
}

void CalibFiles::Show(int place) {
  if (!Has(place)) return;
  const GraphList list = program_.List();
  File& file = files_[static_cast<std::size_t>(place)];
  if (RowOf(place) < 0) {
    if (!HasRoom()) MakeRoom(kNone);
    if (HasRoom()) {
      Read(file);
    } else {
      GetGraphSpace(list, 0);  // tells that there is none
    }
    return;
  }
  const int row = RowOf(place);
  const int win_no = list.workspace.Slots[row].WinNo;
  if (list.workspace.Slots[row].Disp == kFalse) ChgValue_chkGrp(list, win_no, row, true);
  Change_cboGrphSel(list, win_no, row);
  ChangeActiveWin(list, win_no);
  file.used = ++uses_;
}

bool CalibFiles::Remove(int place) {
  if (!Has(place)) return true;
  if (ConfirmUnsaved(program_.List()) != kFalse) return false;
  if (const int row = RowOf(place); row >= 0) RemoveGraph(program_.List(), row);
  files_.erase(files_.begin() + place);
  return true;
}

bool CalibFiles::RemoveAll() {
  std::set<int> graphs = curves_;
  for (const File& file : files_) {
    if (file.data_no != kNone) graphs.insert(file.data_no);
  }
  if (!graphs.empty() && ConfirmUnsaved(program_.List()) != kFalse) return false;
  for (const int data_no : graphs) {
    const int row = RowOfSpectrum(program_.workspace, data_no);
    if (row >= 0) RemoveGraph(program_.List(), row);
  }
  files_.clear();
  curves_.clear();
  return true;
}

bool CalibFiles::IsOurs(int data_no) const {
  return curves_.contains(data_no) ||
         std::any_of(files_.begin(), files_.end(),
                     [data_no](const File& file) { return file.data_no == data_no; });
}

void CalibFiles::Forget(int data_no) {
  curves_.erase(data_no);
  for (File& file : files_) {
    if (file.data_no == data_no) file.data_no = kNone;
  }
}

void CalibFiles::SpectrumRemoved(int WinNo, int DataNo) {
  if (EndsGraph(program_.workspace, WinNo, DataNo)) Forget(DataNo);
}

// The graph is no longer the one that was read, also where its number stays.
void CalibFiles::CurveMade(int DataNo, int source) {
  const bool ours = IsOurs(source);
  Forget(DataNo);
  if (ours) curves_.insert(DataNo);
}

}  // namespace dorvane
