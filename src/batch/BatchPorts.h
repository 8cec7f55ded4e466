// Ports of a program without a window: nothing is asked, and what would be shown is kept.
#pragma once

#include <string>
#include <vector>

#include "program/Program.h"

namespace dorvane {

// Keeps every message. Questions are answered as told at construction, choices cancelled.
class CollectingDialogs : public Dialogs {
 public:
  explicit CollectingDialogs(bool says_yes = false) : says_yes_(says_yes) {}
  void Message(std::string_view text) override { messages.emplace_back(text); }
  void CaptionedMessage(std::string_view, std::string_view text) override { Message(text); }
  bool AskYesNo(const Question&) override { return says_yes_; }
  std::optional<FilesChoice> ChooseFilesToOpen(const FileRequest&) override { return {}; }
  std::optional<FileChoice> ChooseFileToSave(const FileRequest&) override { return {}; }
  std::optional<Color> ChooseColor(Color) override { return {}; }

  std::vector<std::string> messages;

 private:
  bool says_yes_;
};

// Keeps every line.
class CollectingLog : public LogSink {
 public:
  void PutLog(std::string_view text) override { lines.emplace_back(text); }

  std::vector<std::string> lines;
};

class SilentProgress : public Progress {
 public:
  void Report(int, int) override {}
  bool Cancelled() override { return false; }
};

// One set for one program.
struct BatchPorts {
  CollectingDialogs dialogs;
  CollectingLog log;
  SilentProgress progress;
  WorkspaceListener listener;

  Ports Join(FileLayer& files) { return {dialogs, files, log, progress, listener}; }
};

// A bar on the error stream that tells how many of several files are done; nothing where that is no
// terminal, or for one file.
class ProgressBar {
 public:
  ProgressBar(std::size_t total, bool wanted);
  ~ProgressBar() { Clear(); }
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  void Show(std::size_t done);
  // Takes the bar away, so that lines can be printed.
  void Clear();

 private:
  std::size_t total_;
  bool on_;
  bool shown_ = false;
};

}  // namespace dorvane
