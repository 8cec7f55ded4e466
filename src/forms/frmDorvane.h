// The main form: joins its panels, follows what the program tells, and takes keys, dropped files
// and the end.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/CalibrationPanel.h"
#include "forms/CursorPanel.h"
#include "forms/Form.h"
#include "forms/FormCommands.h"
#include "forms/GraphPanel.h"
#include "forms/KeyTable.h"
#include "forms/MenusPanel.h"
#include "forms/PanelWork.h"
#include "forms/RecentFiles.h"
#include "forms/RecentMenu.h"
#include "forms/ScalePanel.h"
#include "forms/SelectorPanel.h"
#include "forms/StatusPanel.h"
#include "forms/StylePanel.h"
#include "forms/ToolBarsPanel.h"
#include "support/Launcher.h"

namespace dorvane {

// Whoever makes the form adds it to the listeners of the program.
class frmDorvane : public Form, public WorkspaceListener {
 public:
  // All of them outlive the form.
  frmDorvane(Program& program, FormHost& host, Launcher& launcher, SettingsStore& settings);

  // Start: takes the program's own files (Form_Load of the program), then shows window 0. False
  // without "syspara_a.xpr".
  bool Form_Load(const std::string& start_directory);
  // Another form that a command opens; it is hidden when the program ends.
  void Attach(std::string_view command, Form& form, std::function<void()> open);
  // For commands that have no use without a graph: the status line says so where none is open.
  void ForAGraph(const std::function<void()>& run);
  // True when the form has taken the key; `focused` is nullptr when no control has the focus.
  bool Form_KeyDown(FormKey key, KeyModifier modifier, Control* focused);
  // Files dropped on the form are opened in place of what is there. A range that shows the whole of
  // the spectra before shows the whole of those after, as "LoadData" does. While "LoadData" is off
  // they are refused in the status line, as a recent file is.
  void Drop(const std::vector<std::string>& paths);
  // Closing asks as "Exit" does; the form itself never closes.
  void QueryClose() override;

  Overlay OverlayOf(int win_no) const { return graphs.OverlayOf(win_no, cursor.Form()); }
  void DrawOverlay(int win_no, Surface& surface) const {
    graphs.DrawOverlay(win_no, surface, cursor.Form());
  }

  void SelectorFilled() override { RefreshList(); }
  void SelectorRowSelected(int, int) override { RefreshList(); }
  void CheckBoxesFilled() override;
  void SelectionListFilled() override { RefreshList(); }
  void SpectrumShown(int, int) override;
  void SpectrumRemoved(int, int) override { RedrawGraphs(); }
  void GraphShown(int, int, bool) override { RedrawGraphs(); }
  void GraphRecolored(int, int, Color) override;
  void FileRead(std::string_view path) override;
  void FileWritten(std::string_view path) override;
  void FileNotRead(std::string_view path) override { status.FileNotRead(path); }
  void FileNotWritten(std::string_view path) override { status.FileNotWritten(path); }
  void PeakMarked(int, int, const PeakRec&) override { RedrawGraphs(); }
  void PeakUnmarked(int, int, const PeakRec&) override { RedrawGraphs(); }
  void PeakLinesCleared(int) override { RedrawGraphs(); }
  void PointMarksCleared(int, int) override { RedrawGraphs(); }
  void RoiMarked(int, int, int, int, Color) override { RedrawGraphs(); }
  void RoiUnmarked(int, int, int, int, Color) override { RedrawGraphs(); }
  void WindowCleared(int) override { RedrawGraphs(); }
  void RedrawWanted(int WinNo) override { graphs.RedrawGraph(WinNo); }
  void WindowStyleChanged() override;
  void WindowActivated(int) override;
  void UnitAxisChanged() override;
  void CountScaleChanged(int) override;
  void RangeChanged() override;
  void CursorMoved() override;
  void CalibrationShown() override { calibration.Refresh(); }
  void CaptionChanged() override;
  void ButtonsChanged() override;
  void DataTypeShown() override { cursor.Refresh(); }

 private:
  PanelWork work_;

 public:
  FormCommands commands;
  SelectorPanel selector;
  CursorPanel cursor;
  ScalePanel scale;
  StylePanel style;
  CalibrationPanel calibration;
  GraphPanel graphs;
  ToolBarsPanel tool_bars;
  MenusPanel menus;
  StatusPanel status;
  RecentFiles recent;
  RecentMenu recent_menu;

  Event<> Ended;  // both files are written: the process may end

 private:
  void BindOwnCommands(Launcher& launcher);
  bool MayOpen();
  void OpenBy(const std::function<void(Program&)>& open);
  void OpenRecent(const std::string& path);
  void Exit();
  void Refresh();
  void RefreshList();
  void RedrawGraphs();

  Program& program_;
  std::vector<Form*> attached_;
};

}  // namespace dorvane
