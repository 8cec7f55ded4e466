// The running program: workspace, forms and their windows, joined with what they ask of the
// desktop.
#pragma once

#include <QObject>
#include <string>

#include "elements/ElementDb.h"
#include "forms/AttachForms.h"
#include "forms/frmAtom.h"
#include "forms/frmCalibCurv.h"
#include "forms/frmDialogCalibC.h"
#include "forms/frmDialogLoad.h"
#include "forms/frmDispPara.h"
#include "forms/frmDorvane.h"
#include "forms/frmGrpCalc.h"
#include "forms/frmInputFitParameter.h"
#include "forms/frmKeys.h"
#include "forms/frmLog.h"
#include "forms/frmManualFit.h"
#include "forms/frmPeakCal.h"
#include "forms/frmPeakReport.h"
#include "forms/frmPicture.h"
#include "forms/frmPreView.h"
#include "forms/frmPrint.h"
#include "forms/frmProperty.h"
#include "forms/frmResultDirectory.h"
#include "forms/frmRoiReport.h"
#include "forms/frmSelGraph.h"
#include "forms/frmSetColor.h"
#include "forms/frmSetting.h"
#include "program/LineMarks.h"
#include "program/Program.h"
#include "qt/DesktopLauncher.h"
#include "qt/Hourglass.h"
#include "qt/QtDialogs.h"
#include "qt/QtPictures.h"
#include "qt/QtPrinter.h"
#include "qt/StatusProgress.h"
#include "qt/binding/QtFormHost.h"
#include "workspace/ListenerFan.h"

namespace dorvane {

// Where a program starts. All have their closing slash.
struct Places {
  std::string current;    // the folder it was started from: file dialogs open there
  std::string user_data;  // the user's data directory of the desktop
  std::string shipped;    // holds the files that ship with the program
};

class Session : public QObject {
  Q_OBJECT

 public:
  // `settings` outlives the session. Makes the program's directory in the user's data directory
  // when it is the one and isn't there yet.
  Session(const Places& places, SettingsStore& settings);
  ~Session() override;

  // Shows the main window, then loads the program's own files. Without them the curves are bright
  // on a dark ground where the desktop is dark.
  void Start();

  QtDialogs dialogs;
  StatusProgress progress;
  QtFormHost host;
  frmLog log;
  SystemFileLayer files;
  ListenerFan views;
  DesktopLauncher launcher;
  Program program;
  ElementDb element_table;
  LineMarks line_marks;
  Hourglass hourglass;
  frmDorvane main;
  frmSelGraph graph_select;
  frmRoiReport roi_report;
  frmKeys keys;
  frmManualFit manual_fit;
  frmInputFitParameter fit_input;
  frmAtom atom;
  frmGrpCalc arithmetic;
  frmPeakCal lattice;
  QtPrinter printer;
  QtPictures pictures;
  frmPrint print;
  frmPreView preview;
  Printing printing;
  frmPicture picture;
  frmPeakReport peak_report;
  frmProperty property;
  frmResultDirectory result_directory;
  frmSetting setting;
  frmDispPara disp_para;
  frmSetColor colors;
  SystemFolders folders;
  frmDialogLoad load;
  frmCalibCurv calibration_curve;
  frmDialogCalibC calibration;
  FormViews form_views;  // goes first: the windows are above the forms

 signals:
  void Ended();  // both files are written and the windows are hidden

 private:
  void AddViews();
  void ConnectStatus();
  void RestoreGeometry();
  void KeepGeometry();
  void End();

  const Places places_;
  SettingsStore& settings_;
};

}  // namespace dorvane
