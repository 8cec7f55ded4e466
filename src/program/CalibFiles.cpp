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

std::string NameOf(const std::string& path) {
  const PathParts parts = SplitPath(path);
  return parts.Ext.empty() ? parts.Name : parts.Name + "." + parts.Ext;
}

int NextRow(const Workspace& workspace) {
  int row = 0;
  while (row < kRows && HoldsGraph(workspace, row)) ++row;
  return row;
}

// Derived curves carry the record of their spectrum, but for the marks of what has been done.
bool IsMadeOf(SpectrumRec curve, SpectrumRec source) {
  curve.Prop.Flags = source.Prop.Flags = 0;
  curve.SaveFlag = source.SaveFlag = 0;
  return curve == source;
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
  const auto& use = program_.workspace.DataUse;
  return NextRow(program_.workspace) < kRows &&
         std::any_of(use.begin(), use.end(), [](std::int16_t taken) { return taken == 0; });
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
// tables: the other spectra keep theirs, and a number that was in use before brings none along.
bool CalibFiles::Read(File& file) {
  Workspace& workspace = program_.workspace;
  const auto peaks_before = std::make_unique<decltype(workspace.Peaks)>(workspace.Peaks);
  const auto use_before = workspace.DataUse;
  for (int i = 0; i < kFreeSpectra; ++i) {
    if (use_before[i] == 0) workspace.Peaks[i].Count = 0;
  }
  const int row = NextRow(workspace);
  const bool read = ReadGraph(program_, 0, row, file.path) == -1;
  for (int i = 0; i < kFreeSpectra; ++i) {
    if (use_before[i] != 0) workspace.Peaks[i] = (*peaks_before)[i];
  }
  if (!read) return false;
  file.data_no = workspace.Slots[row].DataNo;
  file.used = ++uses_;
  return true;
}

void CalibFiles::MakeRoom() {
  const Workspace& workspace = program_.workspace;
  int oldest = -1;
  for (int place = 0; place < Count(); ++place) {
    const int row = RowOf(place);
    if (row < 0 || workspace.Slots[row].State != kRowSaved) continue;
    const auto used = [this](int each) { return files_[static_cast<std::size_t>(each)].used; };
    if (oldest < 0 || used(place) < used(oldest)) oldest = place;
  }
  if (oldest >= 0) RemoveGraph(program_.List(), RowOf(oldest));
}

void CalibFiles::Show(int place) {
  if (!Has(place)) return;
  const GraphList list = program_.List();
  File& file = files_[static_cast<std::size_t>(place)];
  if (RowOf(place) < 0) {
    if (!HasRoom()) MakeRoom();
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
  const bool open =
      std::any_of(files_.begin(), files_.end(), [](const File& file) { return file.data_no >= 0; });
  if (open && ConfirmUnsaved(program_.List()) != kFalse) return false;
  while (!files_.empty()) {
    const int row = RowOf(0);
    if (row >= 0) {
      const SpectrumRec record = program_.workspace.Spectra[files_.front().data_no];
      RemoveGraph(program_.List(), row);
      RemoveDerived(record);
    }
    files_.erase(files_.begin());
  }
  return true;
}

void CalibFiles::RemoveDerived(const SpectrumRec& record) {
  const Workspace& workspace = program_.workspace;
  for (int row = kRows - 1; row >= 0; --row) {
    const GraphSlot& slot = workspace.Slots[row];
    if (slot.State == kRowEmpty || KindOf(slot.Title) == GraphKind::Raw) continue;
    if (IsMadeOf(workspace.Spectra[slot.DataNo], record)) RemoveGraph(program_.List(), row);
  }
}

void CalibFiles::SpectrumRemoved(int WinNo, int DataNo) {
  if (!EndsGraph(program_.workspace, WinNo, DataNo)) return;
  for (File& file : files_) {
    if (file.data_no == DataNo) file.data_no = -1;
  }
}

}  // namespace dorvane
