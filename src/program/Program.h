// The program without its outsides: workspace, view, drawing engine and the ports, joined in one
// value.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "display/DrawSpect.h"
#include "files/FileContext.h"
#include "support/Dialogs.h"
#include "support/FileLayer.h"
#include "support/LogSink.h"
#include "support/Progress.h"
#include "workspace/GraphList.h"
#include "workspace/ViewState.h"
#include "workspace/Workspace.h"
#include "workspace/WorkspaceListener.h"

namespace dorvane {

// What the program asks of the outside. All of it outlives the program.
struct Ports {
  Dialogs& dialogs;
  FileLayer& files;
  LogSink& log;
  Progress& progress;
  WorkspaceListener& listener;  // shows what happens; told after the drawing engine has followed
};

// Two programs in two threads do not know of each other. About 4 megabytes: make it on the heap.
class Program {
 public:
  // `directory` is where the program's own files lie, with its closing slash.
  Program(const Ports& ports, std::string directory);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  // The list operations' view of this program.
  GraphList List() { return {workspace, view, *listener_, ports.dialogs}; }
  FileContext FileAccess() { return {ports.files, ports.dialogs, workspace.LastDataType}; }
  WorkspaceListener& Listener() { return *listener_; }

  const Ports ports;
  const std::string directory;
  Workspace workspace;
  ViewState view;
  DrawSpect spect;
  std::vector<std::string> last_selection;  // whole paths of the last file selection

 private:
  std::unique_ptr<WorkspaceListener> listener_;
};

// The workspace and the windows as they are when the program starts without its parameter file:
// colours, ranges, scale.
void SetStartValues(Program& program);

// Another colour table: windows and marks take their colours from it, and each graph whose entry is
// another one than before; one that has a colour of its own keeps it otherwise.
void UseColors(Program& program, const ColorTable& colors);

}  // namespace dorvane
