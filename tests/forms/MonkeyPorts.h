// The outside of a program that a monkey works: boxes, dialogs, forms and the rest answer by the
// seed, and what came up is kept for whoever judges the action.
#pragma once

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "forms/Form.h"
#include "forms/MonkeyFiles.h"
#include "support/Dialogs.h"
#include "support/Launcher.h"
#include "support/Progress.h"
#include "workspace/WorkspaceListener.h"

namespace dorvane {

// What came up in one action.
struct Happened {
  std::vector<std::string> boxes;  // texts of plain boxes
  std::vector<std::string> notes;  // all that came up, for the report
  bool data_kept = false;          // an unsaved graph was answered with No
  bool out_of_numbers = false;     // no DataNo was free
  bool saving = false;             // a file was chosen to save to
  std::string saved_to;            // its name in the folder
  bool calculating = false;        // the graph arithmetic was open
  bool calibrating = false;        // the calibration dialog was worked
  bool files_unsure = false;       // a call of the file system may have failed
  bool library_whole = true;       // the crystal library is as it is meant to be
  int files_read = 0;
  int files_not_read = 0;

  bool Has(std::string_view text) const {
    return std::find(boxes.begin(), boxes.end(), text) != boxes.end();
  }
};

class MonkeyDialogs : public Dialogs {
 public:
  MonkeyDialogs(Dice& dice, MonkeyFiles& files, Happened& happened)
      : dice_(dice), files_(files), happened_(happened) {}

  // Shows a text in the program's own dialog.
  std::function<void(std::string_view caption, std::string_view text)> show_captioned;

  void Message(std::string_view text) override {
    happened_.boxes.emplace_back(text);
    if (text == "GetGraphSpace: Notting Space!") happened_.out_of_numbers = true;
    Note("box", text);
  }
  void CaptionedMessage(std::string_view caption, std::string_view text) override {
    Note("dialog", caption);
    show_captioned(caption, text);
  }
  bool AskYesNo(const Question& question) override {
    const bool yes = !dice_.OneIn(5);
    if (question.text.starts_with("File No Save") && !yes) happened_.data_kept = true;
    Note(yes ? "Yes to" : "No to", question.text);
    return yes;
  }
  std::optional<FilesChoice> ChooseFilesToOpen(const FileRequest&) override {
    FilesChoice choice{Offer(files_.SeveralToOpen()), dice_.Below(6)};
    if (choice.paths.empty()) return {};
    return choice;
  }
  std::optional<FileChoice> ChooseFileToSave(const FileRequest&) override {
    if (dice_.OneIn(8)) return {};
    FileChoice choice{files_.ToSave(), dice_.Below(6)};
    happened_.saving = true;
    happened_.saved_to = files_.WithoutFolder(choice.path);
    Note("save", choice.path);
    return choice;
  }
  std::optional<std::string> ChooseDirectory(const std::string&) override {
    if (dice_.OneIn(4)) return {};
    return files_.Path(dice_.OneIn(4) ? "no_such_folder" : dice_.OneIn(2) ? "folder.xbm" : "");
  }
  std::optional<Color> ChooseColor(Color) override {
    if (dice_.OneIn(3)) return {};
    return dice_.Below(0x1000000);
  }

  std::vector<std::string> Offer(std::vector<std::string> paths) {
    for (const std::string& path : paths) Note("open", path);
    return paths;
  }

 private:
  void Note(std::string_view what, std::string_view text) {
    happened_.notes.push_back(std::string(what) + " " + files_.WithoutFolder(std::string(text)));
  }

  Dice& dice_;
  MonkeyFiles& files_;
  Happened& happened_;
};

// Counts the files that were read.
class MonkeyEars : public WorkspaceListener {
 public:
  explicit MonkeyEars(Happened& happened) : happened_(happened) {}
  void FileRead(std::string_view) override { ++happened_.files_read; }
  void FileNotRead(std::string_view) override { ++happened_.files_not_read; }

 private:
  Happened& happened_;
};

// A modal form is worked by `work` a few times, then closed by its frame.
class MonkeyHost : public FormHost {
 public:
  std::function<void(Form&)> work;

  void Show(Form&) override {}
  void Hide(Form&) override {}
  void ShowModal(Form& form) override {
    for (int i = 0; i < 6 && form.Visible(); ++i) work(form);
    if (form.Visible()) form.QueryClose();
    EXPECT_FALSE(form.Visible()) << form.Name() << " cannot be closed";
    form.Hide();
  }
};

class MonkeyLauncher : public Launcher {
 public:
  explicit MonkeyLauncher(Dice& dice) : dice_(dice) {}
  bool EditText(const std::string&) override { return !dice_.OneIn(3); }
  bool Start(const std::string&) override { return false; }

 private:
  Dice& dice_;
};

// Stops one of three long operations at some step.
class MonkeyProgress : public Progress {
 public:
  explicit MonkeyProgress(Dice& dice) : dice_(dice) {}
  void Report(int done, int total) override {
    if (done == 0) stop_at_ = dice_.OneIn(3) ? dice_.Below(total + 1) : total + 1;
    done_ = done;
  }
  bool Cancelled() override { return done_ >= stop_at_; }

 private:
  Dice& dice_;
  int done_ = 0;
  int stop_at_ = 1;
};

}  // namespace dorvane
