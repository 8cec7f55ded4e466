#include "qt/Session.h"

#include <QCoreApplication>

#include "program/Commands.h"
#include "qt/Text.h"

namespace dorvane {

Session::Session()
    : program({dialogs, files, log, progress, notices},
              ToUtf8(QCoreApplication::applicationDirPath()) + "/") {}

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
