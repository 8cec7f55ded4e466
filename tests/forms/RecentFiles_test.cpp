#include "forms/RecentFiles.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "support/MemorySettings.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RecentFilesTest : public testing::Test {
 protected:
  std::vector<std::string> Stored() const { return store.Texts("RecentFiles"); }

  MemorySettings store;
  RecentFiles recent{store};
};

TEST_F(RecentFilesTest, NoFileIsRecentAtTheFirstStart) {
  EXPECT_THAT(recent.Paths(), IsEmpty());
  EXPECT_EQ(store.writes, 0);
}

TEST_F(RecentFilesTest, TheNewestStandsFirst) {
  recent.Add("/data/a.npd");
  recent.Add("/data/b.npd");
  EXPECT_THAT(recent.Paths(), ElementsAre("/data/b.npd", "/data/a.npd"));
}

TEST_F(RecentFilesTest, EveryChangeIsStored) {
  recent.Add("/data/a.npd");
  recent.Add("/data/b.npd");
  EXPECT_THAT(Stored(), ElementsAre("/data/b.npd", "/data/a.npd"));
  recent.Remove("/data/a.npd");
  EXPECT_THAT(Stored(), ElementsAre("/data/b.npd"));
}

TEST_F(RecentFilesTest, TheNextRunHasThem) {
  recent.Add("/data/a.npd");
  recent.Add("/data/b.npd");
  EXPECT_EQ(RecentFiles(store).Paths(), recent.Paths());
}

TEST_F(RecentFilesTest, AFileUsedAgainComesToTheHeadAndStandsOnce) {
  recent.Add("/data/a.npd");
  recent.Add("/data/b.npd");
  recent.Add("/data/a.npd");
  EXPECT_THAT(recent.Paths(), ElementsAre("/data/a.npd", "/data/b.npd"));
}

TEST_F(RecentFilesTest, TwoSpellingsOfAPathAreOne) {
  recent.Add("/data/a.npd");
  recent.Add("/data/run/../a.npd");
  recent.Add("/data/./a.npd");
  EXPECT_THAT(recent.Paths(), ElementsAre("/data/a.npd"));
}

TEST_F(RecentFilesTest, ARelativePathCountsFromTheCurrentDirectory) {
  recent.Add("a.npd");
  EXPECT_THAT(recent.Paths(), ElementsAre((std::filesystem::current_path() / "a.npd").string()));
}

TEST_F(RecentFilesTest, TheEleventhDropsTheOldest) {
  for (char name = 'a'; name <= 'k'; ++name) recent.Add(std::string("/data/") + name);
  ASSERT_EQ(recent.Paths().size(), 10u);
  EXPECT_EQ(recent.Paths().front(), "/data/k");
  EXPECT_EQ(recent.Paths().back(), "/data/b");
}

TEST_F(RecentFilesTest, AnEmptyPathIsIgnored) {
  recent.Add("");
  EXPECT_THAT(recent.Paths(), IsEmpty());
  EXPECT_EQ(store.writes, 0);
}

TEST_F(RecentFilesTest, RemovingAPathThatIsNotThereChangesNothing) {
  recent.Add("/data/a.npd");
  int changes = 0;
  recent.Changed.Connect([&] { ++changes; });
  recent.Remove("/data/b.npd");
  EXPECT_EQ(changes, 0);
  EXPECT_EQ(store.writes, 1);
}

TEST_F(RecentFilesTest, ChangesAreTold) {
  int changes = 0;
  recent.Changed.Connect([&] { ++changes; });
  recent.Add("/data/a.npd");
  recent.Add("/data/a.npd");
  EXPECT_EQ(changes, 1);
  recent.Remove("/data/../data/a.npd");
  EXPECT_EQ(changes, 2);
}

TEST_F(RecentFilesTest, StoredTextsThatDoNotFitAreLeftOut) {
  std::vector<std::string> texts = {"", "/data/a.npd", "/data/./a.npd"};
  for (int i = 0; i < 12; ++i) texts.push_back("/data/" + std::to_string(i));
  store.SetTexts("RecentFiles", texts);
  const RecentFiles next(store);
  ASSERT_EQ(next.Paths().size(), 10u);
  EXPECT_EQ(next.Paths()[0], "/data/a.npd");
  EXPECT_EQ(next.Paths()[1], "/data/0");
}

TEST_F(RecentFilesTest, WhatAnotherProgramHasAddedMeanwhileStays) {
  RecentFiles other(store);
  recent.Add("/data/a.npd");
  other.Add("/data/b.npd");
  EXPECT_THAT(Stored(), ElementsAre("/data/b.npd", "/data/a.npd"));
}

TEST_F(RecentFilesTest, JapanesePathsStayAsTheyAre) {
  recent.Add("/データ/圧力 1.npd");
  EXPECT_THAT(recent.Paths(), ElementsAre("/データ/圧力 1.npd"));
}

}  // namespace
}  // namespace dorvane
