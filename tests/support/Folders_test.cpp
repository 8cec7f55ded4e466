#include "support/Folders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "support/Fault.h"
#include "support/TemporaryFolder.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

FaultCode CodeOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const Fault& fault) {
    return fault.Code();
  }
  ADD_FAILURE() << "no fault";
  return {};
}

class FoldersTest : public testing::Test {
 protected:
  void MakeFolder(const std::string& name) { std::filesystem::create_directory(folder.Path(name)); }
  FolderContent List(const std::string& name = "") { return folders.List(folder.Path(name)); }

  TemporaryFolder folder;
  SystemFolders folders;
};

TEST_F(FoldersTest, NamesStandInOrderWithoutRegardToCase) {
  for (const char* name : {"b.npd", "A.npd", "C.npd"}) folder.Put(name, "");
  for (const char* name : {"two", "One"}) MakeFolder(name);
  EXPECT_THAT(List().files, ElementsAre("A.npd", "b.npd", "C.npd"));
  EXPECT_THAT(List().folders, ElementsAre("One", "two"));
}

TEST_F(FoldersTest, HiddenNamesAreLeftOut) {
  folder.Put(".hidden", "");
  MakeFolder(".settings");
  EXPECT_THAT(List().files, IsEmpty());
  EXPECT_THAT(List().folders, IsEmpty());
}

TEST_F(FoldersTest, LinksCountAsWhatTheyLeadTo) {
  MakeFolder("data");
  folder.Put("a.npd", "");
  std::filesystem::create_symlink(folder.Path("data"), folder.Path("to_data"));
  std::filesystem::create_symlink(folder.Path("a.npd"), folder.Path("to_a"));
  std::filesystem::create_symlink(folder.Path("gone"), folder.Path("to_nothing"));
  EXPECT_THAT(List().folders, ElementsAre("data", "to_data"));
  EXPECT_THAT(List().files, ElementsAre("a.npd", "to_a"));
}

TEST_F(FoldersTest, PathIsWholeAndEndsWithItsSeparator) {
  MakeFolder("data");
  EXPECT_EQ(List("data").path, folder.Path("data/"));
  EXPECT_EQ(List("data/").path, folder.Path("data/"));
  EXPECT_EQ(List("data/..").path, folder.Path(""));
  EXPECT_EQ(folders.List("").path, std::filesystem::current_path().string() + "/");
  EXPECT_EQ(folders.List("/..").path, "/");
}

TEST_F(FoldersTest, MissingFolderAndFileFail) {
  folder.Put("a.npd", "");
  EXPECT_EQ(CodeOf([&] { List("missing"); }), FaultCode::FileNotFound);
  EXPECT_EQ(CodeOf([&] { List("a.npd"); }), FaultCode::FileNotFound);
}

TEST_F(FoldersTest, FolderThatMayNotBeReadFails) {
  if (geteuid() == 0) GTEST_SKIP() << "root may read every folder";
  MakeFolder("closed");
  std::filesystem::permissions(folder.Path("closed"), std::filesystem::perms::none);
  EXPECT_EQ(CodeOf([&] { List("closed"); }), FaultCode::PermissionDenied);
  std::filesystem::permissions(folder.Path("closed"), std::filesystem::perms::owner_all);
}

TEST_F(FoldersTest, FolderIsMadeOnce) {
  folders.Make(folder.Path("new"));
  EXPECT_THAT(List().folders, ElementsAre("new"));
  EXPECT_EQ(CodeOf([&] { folders.Make(folder.Path("new")); }), FaultCode::FileFailed);
}

TEST_F(FoldersTest, FolderIsNotMadeInsideAMissingOne) {
  EXPECT_EQ(CodeOf([&] { folders.Make(folder.Path("missing/new")); }), FaultCode::FileNotFound);
  EXPECT_FALSE(folder.Has("missing"));
}

TEST_F(FoldersTest, SystemHasNoDrives) {
  EXPECT_THAT(folders.Drives(), IsEmpty());
}

TEST(MatchesMask, StarIsAnyNumberOfCharacters) {
  EXPECT_TRUE(MatchesMask("a.npd", "*.npd"));
  EXPECT_TRUE(MatchesMask(".npd", "*.npd"));
  EXPECT_TRUE(MatchesMask("a.npd.npd", "*.npd"));
  EXPECT_TRUE(MatchesMask("run_12_end.npd", "run*end*"));
  EXPECT_FALSE(MatchesMask("a.npdx", "*.npd"));
  EXPECT_FALSE(MatchesMask("a.rpt", "*.npd"));
}

TEST(MatchesMask, QuestionMarkIsOneCharacterWhateverItsBytes) {
  EXPECT_TRUE(MatchesMask("a.012", "*.0??"));
  EXPECT_FALSE(MatchesMask("a.01", "*.0??"));
  EXPECT_FALSE(MatchesMask("a.0123", "*.0??"));
  EXPECT_TRUE(MatchesMask("試料.npd", "??.npd"));
  EXPECT_FALSE(MatchesMask("試料.npd", "???.npd"));
}

TEST(MatchesMask, OneOfItsPatternsIsEnough) {
  const char* numbered = "*.0??;*.1??; *.2??";
  EXPECT_TRUE(MatchesMask("a.001", numbered));
  EXPECT_TRUE(MatchesMask("a.199", numbered));
  EXPECT_TRUE(MatchesMask("a.200", numbered));
  EXPECT_FALSE(MatchesMask("a.300", numbered));
}

TEST(MatchesMask, CaseIsNotLookedAt) {
  EXPECT_TRUE(MatchesMask("A.NPD", "*.npd"));
  EXPECT_TRUE(MatchesMask("a.npd", "*.NPD"));
}

TEST(MatchesMask, StarPointStarAndAnEmptyMaskAreEveryName) {
  EXPECT_TRUE(MatchesMask("README", "*.*"));
  EXPECT_TRUE(MatchesMask("README", " "));
  EXPECT_FALSE(MatchesMask("README", ";"));
}

TEST(MatchesMask, NameOfManyLettersAgainstManyStarsIsQuick) {
  EXPECT_FALSE(MatchesMask(std::string(200, 'a'), "*a*a*a*a*a*a*a*a*a*a*b"));
}

}  // namespace
}  // namespace dorvane
