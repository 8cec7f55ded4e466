// The port through which operations start another program of the desktop.
#pragma once

#include <string>

namespace dorvane {

class Launcher {
 public:
  virtual ~Launcher() = default;
  // Opens a file in the system's text editor ("notepad.exe", or what a desktop has in its place)
  // and returns at once. False when that can't be started.
  virtual bool EditText(const std::string& path) = 0;
  // Starts a program in a window of its own and returns at once. False when that can't be started.
  virtual bool Start(const std::string& path) = 0;
};

}  // namespace dorvane
