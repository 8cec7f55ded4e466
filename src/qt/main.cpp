// The desktop program: dorvane [FILE...]
#include <QApplication>
#include <QDir>
#include <QStandardPaths>

#include "qt/DesktopSettings.h"
#include "qt/ProgramPalette.h"
#include "qt/Session.h"
#include "qt/ThemeIcon.h"
#include "qt/binding/Text.h"
#include "qt/surface/Fonts.h"

namespace {

std::string Folder(const QString& path) {
  return dorvane::ToUtf8(path) + "/";
}

// The files that ship with the program stand beside it.
std::string ShippedFolder() {
  return Folder(QCoreApplication::applicationDirPath());
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("dorvane");
  QApplication::setPalette(dorvane::ProgramPalette(QApplication::palette()));
  QApplication::setFont(dorvane::ProgramFont(QApplication::font()));
  QApplication::setWindowIcon(dorvane::ThemeIcon("fit"));
  QApplication::setQuitOnLastWindowClosed(false);
  dorvane::DesktopSettings settings;
  dorvane::Session session(
      {Folder(QDir::currentPath()),
       Folder(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)),
       ShippedFolder()},
      settings);
  QObject::connect(&session, &dorvane::Session::Ended, &application, &QApplication::quit,
                   Qt::QueuedConnection);
  session.Start();
  std::vector<std::string> paths;
  for (const QString& path : QApplication::arguments().mid(1)) {
    paths.push_back(dorvane::ToUtf8(QDir::current().absoluteFilePath(path)));
  }
  session.main.Drop(paths);
  return QApplication::exec();
}
