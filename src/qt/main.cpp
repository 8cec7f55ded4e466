// The desktop program.
#include <QApplication>

#include "qt/MainWindow.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("Dorvane");
  dorvane::MainWindow window;
  window.show();
  return QApplication::exec();
}
