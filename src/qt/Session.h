// The program of one main window together with what it asks of the desktop.
#pragma once

#include <QObject>
#include <functional>
#include <string_view>

#include "program/Program.h"
#include "qt/KeptLog.h"
#include "qt/Notices.h"
#include "qt/QtDialogs.h"
#include "qt/StatusProgress.h"

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
  KeptLog log;
  SystemFileLayer files;
  Notices notices;
  Program program;

 signals:
  void Begun();  // a command or an operation starts
  void Done();
};

}  // namespace dorvane
