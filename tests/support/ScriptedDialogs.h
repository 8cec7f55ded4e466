// Dialogs that follow a script: every box must be expected, in order, and every expected one must
// come.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "support/Dialogs.h"

namespace dorvane {

class ScriptedDialogs : public Dialogs {
 public:
  ~ScriptedDialogs() override {
    for (const Step& step : script_) ADD_FAILURE() << "never shown: " << step.text;
  }

  void ExpectMessage(std::string text) { script_.push_back({.text = std::move(text)}); }
  void ExpectCaptionedMessage(std::string caption, std::string text) {
    script_.push_back({.text = std::move(text), .caption = std::move(caption)});
  }
  void ExpectQuestion(std::string text, bool yes) {
    script_.push_back({.kind = Kind::Question, .text = std::move(text), .yes = yes});
  }
  // No paths, or no path: Cancel.
  void ExpectOpen(std::vector<std::string> answer, int filter_index = 1) {
    script_.push_back({.kind = Kind::Open,
                       .text = "open",
                       .paths = std::move(answer),
                       .filter_index = filter_index});
  }
  void ExpectSave(std::optional<std::string> answer, int filter_index = 1) {
    script_.push_back({.kind = Kind::Save,
                       .text = "save",
                       .path = std::move(answer),
                       .filter_index = filter_index});
  }
  void ExpectDirectory(std::optional<std::string> answer) {
    script_.push_back({.kind = Kind::Directory, .text = "directory", .path = std::move(answer)});
  }

  void ExpectColor(std::optional<Color> answer) {
    script_.push_back({.kind = Kind::ColorChoice, .text = "colour", .color = answer});
  }

  bool Done() const { return script_.empty(); }
  const Question& LastQuestion() const { return last_question_; }
  const FileRequest& LastRequest() const { return last_request_; }
  const std::string& LastStart() const { return last_start_; }  // of the choice of a directory
  Color LastColor() const { return last_color_; }
  // Runs while the next expected colour choice is on the screen.
  void WhileChoosingColor(std::function<void()> look) { while_choosing_ = std::move(look); }

  void Message(std::string_view text) override { EXPECT_EQ(Next(Kind::Message, text).text, text); }
  void CaptionedMessage(std::string_view caption, std::string_view text) override {
    const Step step = Next(Kind::Message, text);
    EXPECT_EQ(step.caption, caption);
    EXPECT_EQ(step.text, text);
  }
  bool AskYesNo(const Question& question) override {
    last_question_ = question;
    const Step step = Next(Kind::Question, question.text);
    EXPECT_EQ(step.text, question.text);
    return step.yes;
  }
  std::optional<FilesChoice> ChooseFilesToOpen(const FileRequest& request) override {
    last_request_ = request;
    const Step step = Next(Kind::Open, request.filter);
    if (step.paths.empty()) return {};
    return FilesChoice{step.paths, step.filter_index};
  }
  std::optional<FileChoice> ChooseFileToSave(const FileRequest& request) override {
    last_request_ = request;
    const Step step = Next(Kind::Save, request.file_name);
    if (!step.path) return {};
    return FileChoice{*step.path, step.filter_index};
  }
  std::optional<std::string> ChooseDirectory(const std::string& start) override {
    last_start_ = start;
    return Next(Kind::Directory, start).path;
  }

  std::optional<Color> ChooseColor(Color start) override {
    last_color_ = start;
    if (while_choosing_) while_choosing_();
    return Next(Kind::ColorChoice, "colour").color;
  }

 private:
  enum class Kind { Message, Question, Open, Save, Directory, ColorChoice };
  struct Step {
    Kind kind = Kind::Message;
    std::string text = {};
    std::string caption = {};
    bool yes = false;
    std::vector<std::string> paths = {};
    std::optional<std::string> path = {};
    int filter_index = 1;
    std::optional<dorvane::Color> color = {};
  };

  Step Next(Kind kind, std::string_view shown) {
    if (script_.empty() || script_.front().kind != kind) {
      ADD_FAILURE() << "not expected: " << shown;
      return {};
    }
    Step step = std::move(script_.front());
    script_.pop_front();
    return step;
  }

  std::deque<Step> script_;
  Question last_question_;
  FileRequest last_request_;
  std::string last_start_;
  Color last_color_ = 0;
  std::function<void()> while_choosing_;
};

}  // namespace dorvane
