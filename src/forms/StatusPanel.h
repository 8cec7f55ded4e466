// The status line of the main form: the current file, what to do next, and the peaks found.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "forms/Controls.h"
#include "forms/PanelWork.h"

namespace dorvane {

class StatusPanel {
 public:
  explicit StatusPanel(PanelWork& work);
  void Refresh();

  // A command begins: what the one before has left goes.
  void Begin();
  // It has ended; `stopped`: by the user.
  void End(bool stopped);
  // It has turned out to be a long one.
  void BeginLong();
  // A message or a question comes up: the line says what to do next, beside the bare text.
  void Tell(std::string_view message);
  // Where the handbook that "Help" names lies, a whole path; empty until it is set.
  void SetHandbook(std::string path) { handbook_ = std::move(path); }
  // The command is not done, for this reason.
  void Refuse(std::string_view why) { lblHint.SetCaption(std::string(why)); }
  // What became of files during the command.
  void FileRead(std::string_view) { ++tried_; }
  void FileNotRead(std::string_view path);
  void FileWritten(std::string_view path);
  void FileNotWritten(std::string_view path);

 private:
  PanelWork& work_;

 public:
  Label lblFile;   // the measurement's name, or the title of its graph
  Label lblHint;   // what to do next
  Label lblPeaks;  // "12 peaks, 12 fitted"

 private:
  std::string handbook_;
  std::string message_;
  std::vector<std::string> unread_;
  int tried_ = 0;  // files that the command has read or tried to read
};

}  // namespace dorvane
