// The port through which operations speak to the user: boxes, questions, choices of files,
// directories and colours.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/Surface.h"

namespace dorvane {

enum class BoxIcon { None, Exclamation, Question };

// A Yes/No box.
struct Question {
  std::string text;
  std::string caption;
  BoxIcon icon = BoxIcon::Exclamation;
  bool no_is_default = true;
};

// The common file dialog: filters as "Text|pattern|Text|pattern", patterns split at ";". A dialog
// that has entries of its own behind them counts these on.
struct FileRequest {
  std::string file_name;
  std::string filter;
  bool several = false;
  int filter_index = 1;           // entry selected at first, from 1; 0 or out of range: the first
  bool overwrite_prompt = false;  // the save dialog asks before it takes a file that exists
  std::string caption = {};       // of the dialog; empty: that of the spectra's
};

// What was chosen in the file dialog.
struct FilesChoice {
  std::vector<std::string> paths;  // whole paths in the order of the selection
  int filter_index = 1;            // entry selected at the end, from 1
};
struct FileChoice {
  std::string path;  // whole path with its extension
  int filter_index = 1;
};

// Everything here is modal: a call returns when the user has answered.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  // Plain box with one OK button.
  virtual void Message(std::string_view text) = 0;
  // The message dialog of the program's own (frmDialogMessage) with one OK button.
  virtual void CaptionedMessage(std::string_view caption, std::string_view text) = 0;
  // True for Yes. Closing the box is No.
  virtual bool AskYesNo(const Question& question) = 0;
  // At least one path; nothing after Cancel.
  virtual std::optional<FilesChoice> ChooseFilesToOpen(const FileRequest& request) = 0;
  virtual std::optional<FileChoice> ChooseFileToSave(const FileRequest& request) = 0;
  // A directory that exists, from `start` on; nothing after Cancel, and where there is no such
  // dialog.
  virtual std::optional<std::string> ChooseDirectory(const std::string& /*start*/) { return {}; }
  // The common colour dialog with `start` selected; nothing after Cancel.
  virtual std::optional<Color> ChooseColor(Color start) = 0;
};

}  // namespace dorvane
