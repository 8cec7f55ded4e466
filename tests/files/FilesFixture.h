// What the tests of readers and writers share: a folder, scripted dialogs, and the check that a
// writer that fails or is killed leaves the old file or the new one.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "files/FileContext.h"
#include "support/FailingFileLayer.h"
#include "support/ScriptedDialogs.h"
#include "support/TemporaryFolder.h"

namespace dorvane {

// Says Yes to every question and keeps the messages.
class YesDialogs : public Dialogs {
 public:
  std::vector<std::string> messages;

  void Message(std::string_view text) override { messages.emplace_back(text); }
  void CaptionedMessage(std::string_view, std::string_view text) override { Message(text); }
  bool AskYesNo(const Question&) override { return true; }
  std::optional<FilesChoice> ChooseFilesToOpen(const FileRequest&) override { return {}; }
  std::optional<FileChoice> ChooseFileToSave(const FileRequest&) override { return {}; }
  std::optional<Color> ChooseColor(Color) override { return {}; }
};

class FilesTest : public testing::Test {
 protected:
  using Writer = std::function<std::int16_t(FileContext&, const std::string& path)>;

  // How a writer tells that a file could not be opened.
  enum class OpenFailure { Told, Passed };

  TemporaryFolder folder_;
  SystemFileLayer system_;
  ScriptedDialogs dialogs_;
  std::int16_t last_data_type_ = 0;
  FileContext context_{system_, dialogs_, last_data_type_};

  void ExpectOldOrNewAtEveryFailure(const Writer& write, const std::string& old_bytes,
                                    const std::string& new_bytes,
                                    OpenFailure open_failure = OpenFailure::Told) {
    bool hit = true;
    for (int n = 1; hit; ++n) {
      SCOPED_TRACE("failure at call " + std::to_string(n));
      folder_.Put("target", old_bytes);
      FailingFileLayer failing(system_, n);
      YesDialogs dialogs;
      FileContext context{failing, dialogs, last_data_type_};
      std::int16_t done = kFalse;
      bool passed = false;
      try {
        done = write(context, folder_.Path("target"));
      } catch (const Fault&) {
        passed = true;
      }
      hit = failing.Hit();
      EXPECT_EQ(done, hit ? kFalse : kTrue);
      EXPECT_EQ(folder_.Get("target"), hit ? old_bytes : new_bytes);
      EXPECT_EQ(folder_.Names(), std::vector<std::string>{"target"});
      const bool told = hit && !passed;
      EXPECT_EQ(dialogs.messages, std::vector<std::string>(told ? 1 : 0, "Open Error"));
      EXPECT_TRUE(!passed || open_failure == OpenFailure::Passed);
    }
  }

  void ExpectOldOrNewAtEveryKill(const Writer& write, const std::string& old_bytes,
                                 const std::string& new_bytes) {
    bool killed = true;
    for (int n = 1; killed; ++n) {
      SCOPED_TRACE("killed at call " + std::to_string(n));
      folder_.Put("target", old_bytes);
      FailingFileLayer killing(system_, n, FailingFileLayer::Mode::Killing);
      YesDialogs dialogs;
      FileContext context{killing, dialogs, last_data_type_};
      try {
        write(context, folder_.Path("target"));
        killed = false;
      } catch (const Killed&) {
        EXPECT_EQ(folder_.Get("target"), old_bytes);
      }
      FileContext healthy{system_, dialogs, last_data_type_};
      EXPECT_EQ(write(healthy, folder_.Path("target")), kTrue);
      EXPECT_EQ(folder_.Get("target"), new_bytes);
      EXPECT_EQ(folder_.Names(), std::vector<std::string>{"target"});
    }
  }
};

}  // namespace dorvane
