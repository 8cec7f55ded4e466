// Saves in a process of their own: one that is killed at any moment, one that owns nothing, one
// that may write only so much.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <random>
#include <thread>

#include "support/Fault.h"
#include "support/FileLayer.h"
#include "support/TemporaryFolder.h"

namespace dorvane {
namespace {

constexpr int kKills = 50;
constexpr std::size_t kSize = 1 << 20;
constexpr int kLetters = 26;
constexpr unsigned kNobody = 65534;

// Runs `work` in a child process, whose status is its answer.
template <typename Work>
pid_t Fork(Work&& work) {
  const pid_t child = fork();
  if (child == 0) _exit(work());
  return child;
}

int StatusOf(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// A whole file is one letter, as often as goes with the letter.
std::string WholeFile(int number) {
  const int letter = number % kLetters;
  return std::string(kSize + static_cast<std::size_t>(letter) * 1000,
                     static_cast<char>('a' + letter));
}

int CodeOfReplace(const std::string& path) {
  SystemFileLayer files;
  try {
    ReplaceFile(files, path, AsBytes(WholeFile(1)));
    return 0;
  } catch (const Fault& fault) {
    return static_cast<int>(fault.Code());
  }
}

TEST(RealProcess, AFileIsWholeAfterAKillAtAnyMoment) {
  const TemporaryFolder folder;
  const std::string path = folder.Path("a");
  folder.Put("a", WholeFile(0));
  std::mt19937 random(7);
  int changed = 0;
  for (int kill_no = 0; kill_no < kKills; ++kill_no) {
    const std::string before = folder.Get("a");
    const pid_t child = Fork([&] {
      SystemFileLayer files;
      for (int number = kill_no + 1;; ++number) {
        ReplaceFile(files, path, AsBytes(WholeFile(number)));
      }
      return 0;
    });
    ASSERT_GT(child, 0);
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 30'000));
    kill(child, SIGKILL);
    EXPECT_EQ(StatusOf(child), -1);
    const std::string after = folder.Get("a");
    ASSERT_FALSE(after.empty());
    ASSERT_TRUE(after == WholeFile(after.front() - 'a')) << "kill " << kill_no;
    if (after != before) ++changed;
  }
  EXPECT_GT(changed, 0);
  EXPECT_EQ(CodeOfReplace(path), 0);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"a"});
}

TEST(RealProcess, WhatAUserMayNotWriteIsRefusedAndStaysAsItIs) {
  const TemporaryFolder folder;
  for (const char* name : {"open", "closed"}) {
    std::filesystem::create_directory(folder.Path(name));
    folder.Put(std::string(name) + "/a", "old");
    chmod(folder.Path(std::string(name) + "/a").c_str(), name[0] == 'o' ? 0444 : 0666);
    chmod(folder.Path(name).c_str(), name[0] == 'o' ? 0777 : 0555);
  }
  chmod(folder.Path("").c_str(), 0755);
  const auto as_a_user = [&](const std::string& path) {
    return StatusOf(Fork([&] {
      if (getuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) return 255;
      return CodeOfReplace(path);
    }));
  };
  const int denied = static_cast<int>(FaultCode::PermissionDenied);
  EXPECT_EQ(as_a_user(folder.Path("open/a")), denied);
  EXPECT_EQ(as_a_user(folder.Path("closed/a")), denied);
  EXPECT_EQ(as_a_user(folder.Path("closed/new")), denied);
  EXPECT_EQ(as_a_user(folder.Path("open/new")), 0);
  EXPECT_EQ(folder.Get("open/a"), "old");
  EXPECT_EQ(folder.Get("closed/a"), "old");
  EXPECT_FALSE(folder.Has("open/.a.saving"));
}

TEST(RealProcess, AWriteThatHasNoRoomLeavesTheOldFile) {
  const TemporaryFolder folder;
  folder.Put("a", "old");
  const int status = StatusOf(Fork([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{kSize / 2, kSize / 2};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 255;
    return CodeOfReplace(folder.Path("a"));
  }));
  EXPECT_EQ(status, static_cast<int>(FaultCode::FileFailed));
  EXPECT_EQ(folder.Get("a"), "old");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"a"});
}

}  // namespace
}  // namespace dorvane
