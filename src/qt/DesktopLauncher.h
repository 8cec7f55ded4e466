// Starts other programs of the desktop.
#pragma once

#include "support/Launcher.h"

namespace dorvane {

class DesktopLauncher : public Launcher {
 public:
  // The first text editor that is installed, else whatever the desktop opens the file with.
  bool EditText(const std::string& path) override;
  bool Start(const std::string& path) override;
};

}  // namespace dorvane
