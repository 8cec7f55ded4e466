// The desktop's own settings store: a file of the user's configuration.
#pragma once

#include <QSettings>

#include "support/SettingsStore.h"

namespace dorvane {

class DesktopSettings : public SettingsStore {
 public:
  DesktopSettings();
  std::vector<std::string> Texts(std::string_view name) const override;
  void SetTexts(std::string_view name, const std::vector<std::string>& texts) override;

 private:
  mutable QSettings settings_;
};

}  // namespace dorvane
