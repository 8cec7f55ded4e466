// What must hold for every writer, wherever its file lies and whatever happens while it writes.
// Tests that include this say which writers there are: INSTANTIATE_TEST_SUITE_P(Of, WriterTest,
// ...), and for those that take any path NamedWriterTest, too.
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "support/AwkwardFiles.h"
#include "support/FailingFileLayer.h"
#include "support/TemporaryFolder.h"
#include "support/YesDialogs.h"

namespace dorvane {

// A writer, and what it says.
struct WriterCase {
  std::string name;
  // Writes the file, all questions answered with Yes. Answers -1 or 0, or nothing where the writer
  // has no answer.
  std::function<std::optional<std::int16_t>(FileLayer&, YesDialogs&, const std::string& path)>
      write;
  std::string image;  // of a new file, and of one that held less before
  // Messages where the file can't be opened and where it fails later; none: nothing is said.
  std::optional<std::string> open_message = "Open Error";
  std::optional<std::string> message = "Open Error";
  bool opening_passes = false;  // a file that can't be opened is a Fault for the caller
  bool keeps_old_tail = false;  // the old file is read
  std::string file_name = "target";
};

inline void PrintTo(const WriterCase& writer, std::ostream* out) {
  *out << writer.name;
}

inline std::string NameOfWriter(const testing::TestParamInfo<WriterCase>& info) {
  return info.param.name;
}

class WriterTest : public testing::TestWithParam<WriterCase> {
 protected:
  static constexpr char kOld[] = "old";
  using Mode = FailingFileLayer::Mode;

  std::string Target() const { return folder_.Path(GetParam().file_name); }
  void PutOld() { folder_.Put(GetParam().file_name, kOld); }
  std::string Content() { return folder_.Get(GetParam().file_name); }
  void ExpectNothingBeside() {
    EXPECT_EQ(folder_.Names(), std::vector<std::string>{GetParam().file_name});
  }

  void ExpectWritten(FileLayer& files, const std::string& path) {
    YesDialogs dialogs;
    const auto answer = GetParam().write(files, dialogs, path);
    EXPECT_EQ(answer.value_or(-1), -1);
    EXPECT_EQ(dialogs.messages, std::vector<std::string>());
  }

  // Not written, and told so as the writer tells it.
  void ExpectRefused(FileLayer& files, const std::string& path, std::function<bool()> opened = {}) {
    YesDialogs dialogs;
    bool passed = false;
    std::optional<std::int16_t> answer = 0;
    try {
      answer = GetParam().write(files, dialogs, path);
    } catch (const Fault&) {
      passed = true;
    }
    const bool opening = !opened || !opened();
    EXPECT_EQ(answer.value_or(0), 0);
    EXPECT_EQ(passed, opening && GetParam().opening_passes);
    std::vector<std::string> told;
    const auto& message = opening ? GetParam().open_message : GetParam().message;
    if (message && !passed) told.push_back(*message);
    EXPECT_EQ(dialogs.messages, told);
  }

  // How many calls a save takes.
  int Calls() {
    FailingFileLayer counting(system_, 0);
    ExpectWritten(counting, Target());
    return counting.Calls();
  }

  TemporaryFolder folder_;
  SystemFileLayer system_;
};

TEST_P(WriterTest, AFailureAtAnyCallLeavesTheOldFileAndNothingElse) {
  PutOld();
  const int calls = Calls();
  for (int n = 1; n <= calls; ++n) {
    SCOPED_TRACE("failure at call " + std::to_string(n));
    PutOld();
    FailingFileLayer failing(system_, n);
    ExpectRefused(failing, Target(), [&] { return failing.Created(); });
    EXPECT_EQ(Content(), kOld);
    ExpectNothingBeside();
  }
}

TEST_P(WriterTest, AFailureAtAnyCallMakesNoNewFile) {
  const int calls = Calls();
  for (int n = 1; n <= calls; ++n) {
    SCOPED_TRACE("failure at call " + std::to_string(n));
    std::filesystem::remove(Target());
    FailingFileLayer failing(system_, n);
    ExpectRefused(failing, Target(), [&] { return failing.Created(); });
    EXPECT_TRUE(folder_.Names().empty());
  }
}

TEST_P(WriterTest, ADiskThatFailsFromAnyCallOnLeavesTheOldFileAndTheNextSaveCleansUp) {
  PutOld();
  const int calls = Calls();
  for (int n = 1; n <= calls; ++n) {
    SCOPED_TRACE("failures from call " + std::to_string(n));
    PutOld();
    FailingFileLayer failing(system_, n, Mode::FailingOn);
    ExpectRefused(failing, Target(), [&] { return failing.Created(); });
    EXPECT_EQ(Content(), kOld);
    ExpectWritten(system_, Target());
    EXPECT_EQ(Content(), GetParam().image);
    ExpectNothingBeside();
  }
}

TEST_P(WriterTest, AKillAtAnyCallLeavesTheOldFileAndTheNextSaveCleansUp) {
  PutOld();
  const int calls = Calls();
  for (int n = 1; n <= calls; ++n) {
    SCOPED_TRACE("killed at call " + std::to_string(n));
    PutOld();
    FailingFileLayer killing(system_, n, Mode::Killing);
    YesDialogs dialogs;
    EXPECT_THROW(GetParam().write(killing, dialogs, Target()), Killed);
    EXPECT_EQ(Content(), kOld);
    ExpectWritten(system_, Target());
    EXPECT_EQ(Content(), GetParam().image);
    ExpectNothingBeside();
  }
}

TEST_P(WriterTest, AFullDiskLeavesTheOldFile) {
  PutOld();
  for (const std::size_t room : {std::size_t{0}, std::size_t{1}, GetParam().image.size() - 1}) {
    FullDisk full(room);
    ExpectRefused(full, Target(), [] { return true; });
    EXPECT_EQ(Content(), kOld);
    ExpectNothingBeside();
  }
}

TEST_P(WriterTest, AFileThatMayNotBeWrittenIsRefused) {
  PutOld();
  ReadOnlyFiles locked;
  ExpectRefused(locked, Target());
  EXPECT_EQ(Content(), kOld);
  ExpectNothingBeside();
}

TEST_P(WriterTest, AFolderThatMayNotBeWrittenIsRefused) {
  PutOld();
  ReadOnlyFolder locked;
  ExpectRefused(locked, Target());
  EXPECT_EQ(Content(), kOld);
}

TEST_P(WriterTest, ALinkIsFollowedAndKept) {
  std::filesystem::create_directory(folder_.Path("elsewhere"));
  folder_.Put("elsewhere/real", kOld);
  std::filesystem::create_symlink("elsewhere/real", Target());
  ExpectWritten(system_, Target());
  EXPECT_TRUE(std::filesystem::is_symlink(Target()));
  EXPECT_EQ(folder_.Get("elsewhere/real"), GetParam().image);
  EXPECT_EQ(folder_.Names().size(), 2u);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.Path("elsewhere")), {}), 1);
}

TEST_P(WriterTest, ALinkToAFileThatIsNotThereYetIsFollowedAndKept) {
  std::filesystem::create_directory(folder_.Path("elsewhere"));
  std::filesystem::create_symlink("elsewhere/real", Target());
  ExpectWritten(system_, Target());
  EXPECT_TRUE(std::filesystem::is_symlink(Target()));
  EXPECT_EQ(folder_.Get("elsewhere/real"), GetParam().image);
  EXPECT_EQ(folder_.Names().size(), 2u);
}

TEST_P(WriterTest, LinksThatLeadNowhereAreRefused) {
  std::filesystem::create_symlink(GetParam().file_name, Target());
  ExpectRefused(system_, Target());
  std::filesystem::remove(Target());
  std::filesystem::create_symlink("missing/real", Target());
  ExpectRefused(system_, Target());
  ExpectNothingBeside();
}

TEST_P(WriterTest, AFolderInPlaceOfTheFileIsRefused) {
  std::filesystem::create_directory(Target());
  ExpectRefused(system_, Target());
  EXPECT_TRUE(std::filesystem::is_directory(Target()));
  ExpectNothingBeside();
}

TEST_P(WriterTest, APipeInPlaceOfTheFileIsRefused) {
  ASSERT_EQ(mkfifo(Target().c_str(), 0600), 0);
  ExpectRefused(system_, Target());
  ExpectNothingBeside();
}

TEST_P(WriterTest, APipeOrAFolderInPlaceOfTheTemporaryIsRefused) {
  PutOld();
  const std::string temporary = folder_.Path("." + GetParam().file_name + ".saving");
  ASSERT_EQ(mkfifo(temporary.c_str(), 0600), 0);
  ExpectRefused(system_, Target());
  std::filesystem::remove(temporary);
  std::filesystem::create_directory(temporary);
  ExpectRefused(system_, Target());
  EXPECT_EQ(Content(), kOld);
}

TEST_P(WriterTest, AnEmptyFileIsReplaced) {
  folder_.Put(GetParam().file_name, "");
  ExpectWritten(system_, Target());
  EXPECT_EQ(Content(), GetParam().image);
}

TEST_P(WriterTest, AFileOfFourGibibytesIsReplacedOrRefusedButNeverReadWhole) {
  PutOld();
  std::filesystem::resize_file(Target(), std::uintmax_t{4} << 30);
  CountingFiles counting;
  if (GetParam().keeps_old_tail) {
    ExpectRefused(counting, Target());
  } else {
    ExpectWritten(counting, Target());
    EXPECT_EQ(Content(), GetParam().image);
  }
  EXPECT_LE(counting.bytes_read, GetParam().image.size());
}

TEST_P(WriterTest, AMissingFolderIsRefusedAndNotMade) {
  ExpectRefused(system_, folder_.Path("missing/" + GetParam().file_name));
  EXPECT_TRUE(folder_.Names().empty());
}

class NamedWriterTest : public WriterTest {
 protected:
  void ExpectWrittenAs(const std::string& name) {
    ExpectWritten(system_, folder_.Path(name));
    EXPECT_EQ(folder_.Names(), std::vector<std::string>{name});
    ExpectWritten(system_, folder_.Path(name));
    EXPECT_EQ(folder_.Get(name), GetParam().image);
    EXPECT_EQ(folder_.Names(), std::vector<std::string>{name});
  }
};

TEST_P(NamedWriterTest, ANameOf255BytesIsWritten) {
  ExpectWrittenAs(std::string(251, 'n') + ".abc");
}

TEST_P(NamedWriterTest, ANameOf256BytesIsRefused) {
  ExpectRefused(system_, folder_.Path(std::string(252, 'n') + ".abc"));
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_P(NamedWriterTest, AJapaneseNameIsWritten) {
  ExpectWrittenAs("高圧 試料①.abc");
  ExpectWrittenAs("高圧 試料①.abc");
}

}  // namespace dorvane
