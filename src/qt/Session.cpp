#include "qt/Session.h"

#include <QCoreApplication>

#include "program/Commands.h"
#include "qt/binding/Text.h"
#include "qt/views/Views.h"

namespace dorvane {

Session::Session()
    : log(host),
      views(notices),
      program({dialogs, files, log, progress, views},
              ToUtf8(QCoreApplication::applicationDirPath()) + "/"),
      graph_select(program, host),
      roi_report(program, host),
      form_views(host) {
  views.Add(graph_select);
  views.Add(roi_report);
  form_views.Add(log, [this](FormWindow& window) { LayOut(log, window); });
  form_views.Add(graph_select, [this](FormWindow& window) { LayOut(graph_select, window); });
  form_views.Add(roi_report, [this](FormWindow& window) { LayOut(roi_report, window); });
}

void Session::Run(std::string_view command) {
  emit Begun();
  progress.Start();
  RunCommand(program, command);
  progress.Finish();
  emit Done();
}

void Session::Do(const std::function<void(Program&)>& operation) {
  emit Begun();
  progress.Start();
  RunGuarded(program, operation);
  progress.Finish();
  emit Done();
}

}  // namespace dorvane
