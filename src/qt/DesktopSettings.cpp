#include "qt/DesktopSettings.h"

#include "qt/binding/Text.h"

namespace dorvane {

DesktopSettings::DesktopSettings()
    : settings_(QSettings::IniFormat, QSettings::UserScope, "dorvane", "dorvane") {}

// Another running program may have written meanwhile.
std::vector<std::string> DesktopSettings::Texts(std::string_view name) const {
  settings_.sync();
  std::vector<std::string> texts;
  for (const QString& text : settings_.value(ToQString(name)).toStringList()) {
    texts.push_back(ToUtf8(text));
  }
  return texts;
}

void DesktopSettings::SetTexts(std::string_view name, const std::vector<std::string>& texts) {
  QStringList list;
  for (const std::string& text : texts) list << ToQString(text);
  settings_.setValue(ToQString(name), list);
  settings_.sync();
}

}  // namespace dorvane
