#include "qt/DesktopLauncher.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include "qt/binding/Text.h"

namespace dorvane {
namespace {

constexpr const char* kEditors[] = {
    "gnome-text-editor", "gedit", "kate",       "kwrite",  "xed",
    "mousepad",          "pluma", "featherpad", "leafpad", "notepad.exe"};

}  // namespace

bool DesktopLauncher::EditText(const std::string& path) {
  for (const char* editor : kEditors) {
    const QString program = QStandardPaths::findExecutable(editor);
    if (!program.isEmpty()) return QProcess::startDetached(program, {ToQString(path)});
  }
  return QDesktopServices::openUrl(QUrl::fromLocalFile(ToQString(path)));
}

bool DesktopLauncher::Start(const std::string& path) {
  return QProcess::startDetached(ToQString(path), {});
}

}  // namespace dorvane
