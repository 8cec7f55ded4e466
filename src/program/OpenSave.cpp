#include "program/OpenSave.h"

#include <algorithm>

#include "files/FormatTable.h"
#include "files/SplitPath.h"
#include "processing/PeakOpe.h"
#include "processing/RoiOpe.h"
#include "program/View.h"

namespace dorvane {

const std::string_view kOpenFilter =
    "Nippon high Pressure Data File (*.npd)|*.npd|Gennie File (*.cnf;*.rpt)|*.cnf;*.rpt|"
    "Express File (*.xbm)|*.xbm|DAC File (*.raw)|*.raw";
const std::string_view kSaveFilter =
    "Nippon high Pressure Data file (*.npd)|*.npd|Gennie File (*.rpt)|*.rpt|Express File "
    "(*.xbm)|*.xbm|Excel File (*.csv)|*.csv|GSAS File (*.gsa)|*.gsa";

namespace {

FileParts PartsOf(Program& program, int data_no) {
  Workspace& workspace = program.workspace;
  return {workspace.Channels[data_no], workspace.Spectra[data_no], workspace.Peaks[data_no],
          workspace.Dac};
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

  FileContext files = program.FileAccess();
  if (ReadByExtension(files, path, PartsOf(program, data_no)) != -1) return 0;

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
  FileContext files = program.FileAccess();
  if (WriteByExtension(files, path, PartsOf(program, slot.DataNo)) != -1) {
    program.Listener().FileNotWritten(path);
    return 0;
  }
  slot.State = kRowSaved;
  program.Listener().SelectorFilled();
  program.Listener().FileWritten(path);
  return -1;
}

}  // namespace dorvane
