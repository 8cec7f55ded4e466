// The program of one main window together with what it asks of the desktop.
#pragma once

#include <QObject>
#include <functional>
#include <string_view>

#include "forms/frmLog.h"
#include "forms/frmRoiReport.h"
#include "forms/frmSelGraph.h"
#include "program/Program.h"
#include "qt/Notices.h"
#include "qt/QtDialogs.h"
#include "qt/StatusProgress.h"
#include "qt/binding/QtFormHost.h"
#include "workspace/ListenerFan.h"

namespace dorvane {

class Session : public QObject {
  Q_OBJECT

 public:
  Session();

  // Runs a row of the table of commands.
  void Run(std::string_view command);
  // Runs an operation behind the same boundary: a fault becomes a box.
  void Do(const std::function<void(Program&)>& operation);

  QtDialogs dialogs;
  StatusProgress progress;
  QtFormHost host;
  frmLog log;
  SystemFileLayer files;
  Notices notices;
  ListenerFan views;
  Program program;
  frmSelGraph graph_select;
  frmRoiReport roi_report;
  FormViews form_views;  // goes first: the windows are above the forms

 signals:
  void Begun();  // a command or an operation starts
  void Done();
};

}  // namespace dorvane
