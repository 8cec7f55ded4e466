// Dialogs that say Yes to every question and keep the messages.
#pragma once

#include <string>
#include <vector>

#include "support/Dialogs.h"

namespace dorvane {

class YesDialogs : public Dialogs {
 public:
  std::vector<std::string> messages;
  std::optional<FileChoice> to_save;  // none: Cancel

  void Message(std::string_view text) override { messages.emplace_back(text); }
  void CaptionedMessage(std::string_view, std::string_view text) override { Message(text); }
  bool AskYesNo(const Question&) override { return true; }
  std::optional<FilesChoice> ChooseFilesToOpen(const FileRequest&) override { return {}; }
  std::optional<FileChoice> ChooseFileToSave(const FileRequest&) override { return to_save; }
  std::optional<Color> ChooseColor(Color) override { return {}; }
};

}  // namespace dorvane
