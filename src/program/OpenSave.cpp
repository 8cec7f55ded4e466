#include "program/OpenSave.h"

#include <algorithm>
#include <array>

#include "files/FileDorvane.h"
#include "files/FileNPD.h"
#include "files/SplitPath.h"
#include "processing/PeakOpe.h"
#include "processing/RoiOpe.h"
#include "program/View.h"
#include "support/NumberText.h"

namespace dorvane {

const std::string_view kOpenFilter =
    "Nippon high Pressure Data File (*.npd)|*.npd|Gennie File (*.cnf;*.rpt)|*.cnf;*.rpt|"
    "Express File (*.xbm)|*.xbm|DAC File (*.raw)|*.raw";
const std::string_view kSaveFilter =
    "Nippon high Pressure Data file (*.npd)|*.npd|Gennie File (*.rpt)|*.rpt|Express File "
    "(*.xbm)|*.xbm|Excel File (*.csv)|*.csv|GSAS File (*.gsa)|*.gsa";

namespace {

using Reader = std::int16_t (*)(Program&, const std::string& path, int data_no);
using Writer = Reader;

// An operation on a file as a row of the tables below.
template <auto Operation>
std::int16_t OnSpectrum(Program& program, const std::string& path, int data_no) {
  FileContext files = program.FileAccess();
  return Operation(files, path, program.workspace.Channels[data_no],
                   program.workspace.Spectra[data_no]);
}

// The same for a format that carries the peak table.
template <auto Operation>
std::int16_t OnSpectrumWithPeaks(Program& program, const std::string& path, int data_no) {
  FileContext files = program.FileAccess();
  return Operation(files, path, program.workspace.Channels[data_no],
                   program.workspace.Spectra[data_no], program.workspace.Peaks[data_no]);
}

struct ReaderRow {
  std::string_view extension;
  Reader read;
};
constexpr std::array kReaders{
    ReaderRow{"npd", OnSpectrum<ReadNpdFile>},
    ReaderRow{"xbm", OnSpectrum<ReadXbm>},
    ReaderRow{"xba", OnSpectrumWithPeaks<ReadXba>},
};

struct WriterRow {
  std::string_view extension;
  Writer write;
};
constexpr std::array kWriters{
    WriterRow{"xta", OnSpectrum<WriteXta>},
    WriterRow{"xba", OnSpectrumWithPeaks<WriteXba>},
    WriterRow{"npd", OnSpectrum<WriteNpdFile>},
    WriterRow{"xbm", OnSpectrum<WriteXbm>},
};

// Files of a measurement series end in a number; the test comes before all others.
bool IsSeriesNumber(std::string_view extension) {
  return !extension.empty() && std::all_of(extension.begin(), extension.end(),
                                           [](char c) { return c >= '0' && c <= '9'; });
}

Reader ReaderOf(std::string_view extension) {
  if (IsSeriesNumber(extension)) return OnSpectrum<ReadXbm>;
  const std::string lower = LowerAscii(extension);
  for (const ReaderRow& row : kReaders) {
    if (row.extension == lower) return row.read;
  }
  return nullptr;
}

Writer WriterOf(std::string_view extension) {
  const std::string lower = LowerAscii(extension);
  for (const WriterRow& row : kWriters) {
    if (row.extension == lower) return row.write;
  }
  return nullptr;
}

std::string NameWithExtension(const PathParts& parts) {
  return parts.Ext.empty() ? parts.Name : parts.Name + "." + parts.Ext;
}

// A read starts from a clean record with the default calibration.
void BlankSpectrum(Workspace& workspace, int data_no) {
  workspace.Spectra[data_no] = SpectrumRec{};
  workspace.Spectra[data_no].Prop.EGC = workspace.DefaultProp.EGC;
  workspace.Spectra[data_no].Prop.TwoTheta = workspace.DefaultProp.TwoTheta;
  workspace.Channels[data_no] = ChannelBlock{};
  workspace.FitBack.fill(0);
}

void RemoveAllGraphs(Program& program) {
  const GraphList list = program.List();
  const int count = program.workspace.GrpCount;
  for (int i = 0; i < count; ++i) {
    DeleteGraph(list, 0);
    Add_cboGraphSel(list);
    program.workspace.Peaks[i].Count = 0;
  }
  program.workspace.GrpCount = 0;
  for (int win_no = 0; win_no < kWindows; ++win_no) program.Listener().WindowCleared(win_no);
  program.view.FitMade = kFalse;
  tlbOperationInit(program.view);
}

// KEPT: one file dialog serves to open and to save, so that both select the filter that either has
// chosen last, although their filters differ behind the third.
FileRequest CommonRequest(const Program& program) {
  FileRequest request;
  request.filter_index = program.workspace.FilterIndex;
  return request;
}

std::int16_t ReadIntoRow(Program& program, int win_no, int grp_no, const std::string& path) {
  Workspace& workspace = program.workspace;
  ViewState& view = program.view;
  const GraphList list = program.List();
  const PathParts parts = SplitPath(path);
  workspace.CurDrive = parts.Drive;
  workspace.CurDir = parts.Dir;
  const std::string title = NameWithExtension(parts);
  view.Caption = "Dorvane (Data Analyze) --- " + title;
  program.Listener().CaptionChanged();

  const std::int16_t data_no = GetGraphSpace(list, -1);
  if (data_no < 0) return 0;
  BlankSpectrum(workspace, data_no);
  RoiClear(list);
  // KEPT: the new DataNo is taken as a row number here, so the emptied peak table can be another
  // spectrum's.
  workspace.Peaks[workspace.Slots[data_no].DataNo].Count = 0;
  program.Listener().PeakLinesCleared(win_no);

  const Reader read = ReaderOf(parts.Ext);
  if (read == nullptr || read(program, path, data_no) != -1) return 0;

  program.Listener().PointMarksCleared(win_no, data_no);
  SetGraph(list, win_no, grp_no, data_no, title);
  workspace.UseFileEgc = 1;
  SetEGCParam(program, 1);
  AutoScaleY(program, win_no, data_no);
  Change_cboGrphSel(list, win_no, grp_no);
  ChangeActiveWin(list, win_no);
  program.Listener().DataTypeShown();
  return -1;
}

void ReadChosenFiles(Program& program, const std::vector<std::string>& paths) {
  if (ConfirmUnsaved(program.List()) != 0) return;
  program.last_selection = paths;
  const int count = std::min<int>(static_cast<int>(paths.size()), kMostFilesAtOnce);
  for (int i = 0; i < count; ++i) ReadGraph(program, 0, i, paths[static_cast<std::size_t>(i)]);
}

}  // namespace

void LoadData(Program& program) {
  RemoveAllGraphs(program);
  FileLoad(program);
}

void LoadData(Program& program, const std::vector<std::string>& paths) {
  RemoveAllGraphs(program);
  ReadChosenFiles(program, paths);
}

void FileLoad(Program& program) {
  FileRequest request = CommonRequest(program);
  request.filter = kOpenFilter;
  request.several = true;
  const auto choice = program.ports.dialogs.ChooseFilesToOpen(request);
  if (!choice) return;
  program.workspace.FilterIndex = ToInt16(choice->filter_index);
  ReadChosenFiles(program, choice->paths);
}

std::int16_t ReadGraph(Program& program, int win_no, int grp_no, const std::string& path) {
  const std::int16_t result = ReadIntoRow(program, win_no, grp_no, path);
  if (result == -1) {
    program.Listener().FileRead(path);
  } else {
    program.Listener().FileNotRead(path);
  }
  return result;
}

std::string ProposedName(const Program& program) {
  const auto& slots = program.workspace.Slots;
  const auto raw = std::find_if(slots.begin(), slots.end(), [](const GraphSlot& slot) {
    return KindOf(slot.Title) == GraphKind::Raw;
  });
  if (raw == slots.end() || raw->Title.empty()) return "";
  const std::string name = raw->Title.substr(0, raw->Title.find('.'));
  return name + "_" + SuffixOf(KindOf(slots[program.view.GraphNo].Title));
}

void FileSave(Program& program) {
  if (program.workspace.Slots[program.view.GraphNo].State == kRowEmpty) {
    program.ports.dialogs.Message("No Data");
    return;
  }
  FileRequest request = CommonRequest(program);
  request.file_name = ProposedName(program);
  request.filter = kSaveFilter;
  const auto choice = program.ports.dialogs.ChooseFileToSave(request);
  if (!choice) return;
  program.workspace.FilterIndex = ToInt16(choice->filter_index);
  SaveGraphAs(program, choice->path);
}

std::int16_t SaveGraphAs(Program& program, const std::string& path) {
  GraphSlot& slot = program.workspace.Slots[program.view.GraphNo];
  SpectrumRec& record = program.workspace.Spectra[slot.DataNo];
  const PathParts parts = SplitPath(path);
  record.SaveFlag = 0;
  record.MsuName.Set(parts.Name);
  record.SaveFlag = 1;
  const Writer write = WriterOf(parts.Ext);
  if (write == nullptr || write(program, path, slot.DataNo) != -1) {
    program.Listener().FileNotWritten(path);
    return 0;
  }
  slot.State = kRowSaved;
  program.Listener().SelectorFilled();
  program.Listener().FileWritten(path);
  return -1;
}

bool CanRead(std::string_view extension) {
  return ReaderOf(extension) != nullptr;
}
bool CanWrite(std::string_view extension) {
  return WriterOf(extension) != nullptr;
}

std::vector<std::string> ReadableExtensions() {
  std::vector<std::string> extensions;
  for (const ReaderRow& row : kReaders) extensions.emplace_back(row.extension);
  return extensions;
}

}  // namespace dorvane
