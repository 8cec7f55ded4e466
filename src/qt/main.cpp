// The desktop program.
#include <QApplication>

#include "qt/MainWindow.h"
#include "qt/ThemeIcon.h"
#include "qt/surface/Fonts.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("Dorvane");
  QApplication::setFont(dorvane::ProgramFont(QApplication::font()));
  QApplication::setWindowIcon(dorvane::ThemeIcon("fit"));
  dorvane::MainWindow window;
  window.show();
  return QApplication::exec();
}
