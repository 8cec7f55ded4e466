// The application of a benchmark that shows windows: without a display, as long as the program
// runs.
#pragma once

#include <QApplication>

namespace dorvane {

inline QApplication& TheApplication() {
  static char name[] = "bench";
  static char* argv[] = {name, nullptr};
  static int argc = 1;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static QApplication application(argc, argv);
  return application;
}

}  // namespace dorvane
