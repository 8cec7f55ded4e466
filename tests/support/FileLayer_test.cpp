#include "support/FileLayer.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "support/FailingFileLayer.h"
#include "support/TemporaryFolder.h"

namespace dorvane {
namespace {

constexpr int kMoreCallsThanAny = 20;

template <typename Action>
FaultCode FaultOf(Action&& action) {
  try {
    action();
  } catch (const Fault& fault) {
    return fault.Code();
  }
  ADD_FAILURE() << "no fault";
  return FaultCode::BadArgument;
}

class FileLayerTest : public testing::Test {
 protected:
  void Replace(const std::string& name, std::string_view bytes) {
    ReplaceFile(system_, folder_.Path(name), AsBytes(bytes));
  }
  TemporaryFolder folder_;
  SystemFileLayer system_;
};

// Reads a byte a call and tells of a file that may not be written.
class AwkwardFileLayer : public SystemFileLayer {
 public:
  std::optional<FileInfo> Info(const std::string& path) override {
    auto info = SystemFileLayer::Info(path);
    if (info) info->writable = false;
    return info;
  }
  std::size_t Read(int file, std::span<std::byte> out) override {
    return SystemFileLayer::Read(file, out.first(std::min<std::size_t>(out.size(), 1)));
  }
};

TEST_F(FileLayerTest, ReplaceMakesAFileAndReadGivesItBack) {
  Replace("a.xbm", "content");
  EXPECT_EQ(folder_.Get("a.xbm"), "content");
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{"a.xbm"});
}

TEST_F(FileLayerTest, ReplaceLeavesNothingOfALongerFile) {
  Replace("a", "a long old content");
  Replace("a", "new");
  EXPECT_EQ(folder_.Get("a"), "new");
}

TEST_F(FileLayerTest, ReadOfAMissingFileIsFileNotFound) {
  EXPECT_EQ(FaultOf([&] { ReadFile(system_, folder_.Path("none")); }), FaultCode::FileNotFound);
  EXPECT_EQ(FaultOf([&] { ReadFile(system_, folder_.Path("none/below")); }),
            FaultCode::FileNotFound);
}

TEST_F(FileLayerTest, AFolderOrAPipeIsNoFile) {
  EXPECT_EQ(FaultOf([&] { ReadFile(system_, folder_.Path("")); }), FaultCode::FileFailed);
  mkfifo(folder_.Path("pipe").c_str(), 0600);
  EXPECT_EQ(FaultOf([&] { ReadFile(system_, folder_.Path("pipe")); }), FaultCode::FileFailed);
  EXPECT_EQ(FaultOf([&] { Replace("pipe", "x"); }), FaultCode::FileFailed);
}

TEST_F(FileLayerTest, ReadRefusesMoreThanItsLimit) {
  folder_.Put("a", "12345");
  EXPECT_EQ(ReadFile(system_, folder_.Path("a"), 5).size(), 5u);
  EXPECT_EQ(FaultOf([&] { ReadFile(system_, folder_.Path("a"), 4); }), FaultCode::FileFailed);
}

TEST_F(FileLayerTest, ReadGoesOnAfterAShortRead) {
  folder_.Put("a", "12345");
  AwkwardFileLayer awkward;
  EXPECT_EQ(AsText(ReadFile(awkward, folder_.Path("a"))), "12345");
}

TEST_F(FileLayerTest, ReadOfAnEmptyFileIsEmpty) {
  folder_.Put("a", "");
  EXPECT_TRUE(ReadFile(system_, folder_.Path("a")).empty());
}

TEST_F(FileLayerTest, ReplaceKeepsPermissions) {
  folder_.Put("a", "old");
  chmod(folder_.Path("a").c_str(), 0640);
  Replace("a", "new");
  EXPECT_EQ(system_.Info(folder_.Path("a"))->permissions, 0640u);
}

TEST_F(FileLayerTest, ReplaceFollowsALink) {
  folder_.Put("target", "old");
  std::filesystem::create_symlink("target", folder_.Path("link"));
  Replace("link", "new");
  EXPECT_EQ(folder_.Get("target"), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.Path("link")));
}

TEST_F(FileLayerTest, ReplaceFollowsLinksToAFileThatIsNotThereYet) {
  std::filesystem::create_directory(folder_.Path("sub"));
  std::filesystem::create_symlink("sub/second", folder_.Path("first"));
  std::filesystem::create_symlink(folder_.Path("target"), folder_.Path("sub/second"));
  Replace("first", "new");
  EXPECT_EQ(folder_.Get("target"), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.Path("first")));
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.Path("sub/second")));
}

TEST_F(FileLayerTest, LinksInACircleFail) {
  std::filesystem::create_symlink("b", folder_.Path("a"));
  std::filesystem::create_symlink("a", folder_.Path("b"));
  EXPECT_EQ(FaultOf([&] { Replace("a", "x"); }), FaultCode::FileFailed);
  EXPECT_EQ(FaultOf([&] { system_.LinkTarget(folder_.Path("a")); }), FaultCode::FileFailed);
  EXPECT_EQ(FaultOf([&] { ReadFile(system_, folder_.Path("a")); }), FaultCode::FileFailed);
}

TEST_F(FileLayerTest, AFileThatMayNotBeWrittenIsNotReplaced) {
  folder_.Put("a", "old");
  AwkwardFileLayer awkward;
  EXPECT_EQ(FaultOf([&] { ReplaceFile(awkward, folder_.Path("a"), AsBytes("new")); }),
            FaultCode::PermissionDenied);
  EXPECT_EQ(folder_.Get("a"), "old");
}

TEST_F(FileLayerTest, TheLongestNamesCanBeSaved) {
  const std::string name(255, 'n');
  Replace(name, "x");
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{name});
}

TEST_F(FileLayerTest, LongNamesThatBeginAlikeAreSavedAtOnce) {
  const std::string head(250, 'n');
  FileReplacement first(system_, folder_.Path(head + "1"));
  FileReplacement second(system_, folder_.Path(head + "2"));
  first.Commit(AsBytes("first"));
  second.Commit(AsBytes("second"));
  EXPECT_EQ(folder_.Get(head + "1"), "first");
  EXPECT_EQ(folder_.Get(head + "2"), "second");
}

TEST_F(FileLayerTest, ReplaceInAMissingFolderIsFileNotFound) {
  EXPECT_EQ(FaultOf([&] { Replace("none/a", "x"); }), FaultCode::FileNotFound);
}

TEST_F(FileLayerTest, WithoutACommitTheFileStays) {
  folder_.Put("a", "old");
  { FileReplacement replacement(system_, folder_.Path("a")); }
  EXPECT_EQ(folder_.Get("a"), "old");
  EXPECT_EQ(folder_.Names().size(), 1u);
}

TEST_F(FileLayerTest, AFailureAtAnyCallLeavesTheOldFileAndNoTemporary) {
  for (int n = 1; n < kMoreCallsThanAny; ++n) {
    folder_.Put("a", "old content");
    FailingFileLayer failing(system_, n);
    try {
      ReplaceFile(failing, folder_.Path("a"), AsBytes("new"));
      EXPECT_FALSE(failing.Hit());
      EXPECT_EQ(folder_.Get("a"), "new");
    } catch (const Fault&) {
      EXPECT_EQ(folder_.Get("a"), "old content") << "call " << n;
    }
    EXPECT_EQ(folder_.Names(), std::vector<std::string>{"a"}) << "call " << n;
  }
}

TEST_F(FileLayerTest, ADiskThatStaysDeadLeavesTheOldFileAndTheNextSaveCleansUp) {
  for (int n = 1; n < kMoreCallsThanAny; ++n) {
    folder_.Put("a", "old content");
    FailingFileLayer failing(system_, n, FailingFileLayer::Mode::FailingOn);
    try {
      ReplaceFile(failing, folder_.Path("a"), AsBytes("new"));
      EXPECT_EQ(folder_.Get("a"), "new");
    } catch (const Fault&) {
      EXPECT_EQ(folder_.Get("a"), "old content") << "call " << n;
    }
    Replace("a", "later");
    EXPECT_EQ(folder_.Names(), std::vector<std::string>{"a"}) << "call " << n;
  }
}

TEST_F(FileLayerTest, AKillAtAnyCallLeavesTheOldFileAndTheNextSaveCleansUp) {
  bool killed = true;
  for (int n = 1; killed; ++n) {
    folder_.Put("a", "old content");
    FailingFileLayer killing(system_, n, FailingFileLayer::Mode::Killing);
    try {
      ReplaceFile(killing, folder_.Path("a"), AsBytes("new"));
      killed = false;
    } catch (const Killed&) {
      EXPECT_EQ(folder_.Get("a"), "old content") << "call " << n;
    }
    Replace("a", "later");
    EXPECT_EQ(folder_.Get("a"), "later");
    EXPECT_EQ(folder_.Names(), std::vector<std::string>{"a"}) << "call " << n;
  }
}

TEST_F(FileLayerTest, AReadThatFailsAtAnyCallIsAFault) {
  folder_.Put("a", "12345");
  FailingFileLayer counting(system_, 0);
  ReadFile(counting, folder_.Path("a"));
  for (int n = 1; n <= counting.Calls(); ++n) {
    FailingFileLayer failing(system_, n);
    EXPECT_EQ(FaultOf([&] { ReadFile(failing, folder_.Path("a")); }), FaultCode::FileFailed);
  }
}

}  // namespace
}  // namespace dorvane
