#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "house/SourceTree.h"

namespace house {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const SourceTree& Sources() {
  static const SourceTree tree = ReadSourceTree(DORVANE_SOURCE_DIR "/src");
  return tree;
}

// The house as it stands.

TEST(House, HasSources) {
  EXPECT_TRUE(Sources().contains("support/Fault.h"));
}

TEST(House, IncludesPointDownwards) {
  EXPECT_THAT(UpwardIncludes(Sources()), IsEmpty());
}

TEST(House, EveryNoticeOfTheListenersPassesTheFan) {
  static constexpr std::string_view notice = "  virtual void ";
  std::string fan;
  for (const auto& line : Sources().at("workspace/ListenerFan.h")) fan += line;
  int notices = 0;
  for (const auto& line : Sources().at("workspace/WorkspaceListener.h")) {
    if (!line.starts_with(notice)) continue;
    const std::string name = line.substr(notice.size(), line.find('(') - notice.size());
    EXPECT_TRUE(fan.find(" " + name + "(") != std::string::npos) << name;
    ++notices;
  }
  EXPECT_GT(notices, 0);
}

TEST(House, FilesIncludeEachOtherWithoutACircle) {
  EXPECT_THAT(Circles(FileGraph(Sources())), IsEmpty());
}

TEST(House, FoldersIncludeEachOtherWithoutACircle) {
  EXPECT_THAT(Circles(FolderGraph(Sources())), IsEmpty());
}

TEST(House, ToolkitStaysOutside) {
  EXPECT_THAT(ToolkitOutsideQt(Sources()), IsEmpty());
}

TEST(House, HeadersSayWhatTheyAre) {
  EXPECT_THAT(HeadersWithoutSentence(Sources()), IsEmpty());
}

TEST(House, FilesAreShort) {
  EXPECT_THAT(LongFiles(Sources(), 300, 500), IsEmpty());
}

TEST(House, WhatIsKeptHasAReason) {
  EXPECT_THAT(KeptWithoutReason(Sources()), IsEmpty());
}

// The rules find what breaks them, in small trees made for it.

TEST(HouseRules, IncludeOfAHigherFloorIsFound) {
  const SourceTree tree = {{"processing/Calc.h", {"#include \"program/View.h\""}}};
  EXPECT_THAT(UpwardIncludes(tree), ElementsAre("processing/Calc.h includes program/View.h"));
}

TEST(HouseRules, IncludeOfTheSameAndALowerFloorIsFine) {
  const SourceTree tree = {
      {"lattice/A.h", {"#include \"lattice/B.h\"", "#include \"support/Fault.h\""}}};
  EXPECT_THAT(UpwardIncludes(tree), IsEmpty());
}

TEST(HouseRules, OutsidesDoNotKnowEachOther) {
  const SourceTree tree = {
      {"batch/A.cpp", {"#include \"qt/Session.h\"", "#include \"qt/surface/Painter.h\""}}};
  EXPECT_THAT(UpwardIncludes(tree), ElementsAre("batch/A.cpp includes qt/Session.h"));
}

TEST(HouseRules, FolderWithoutAFloorIsFound) {
  EXPECT_THAT(UpwardIncludes({{"attic/A.h", {}}}), ElementsAre("attic/A.h stands on no floor"));
}

TEST(HouseRules, CircleOfFilesIsFoundOnce) {
  const SourceTree tree = {{"files/A.h", {"#include \"files/B.h\""}},
                           {"files/B.h", {"#include \"files/C.h\""}},
                           {"files/C.h", {"#include \"files/A.h\""}}};
  EXPECT_THAT(Circles(FileGraph(tree)),
              ElementsAre("files/A.h -> files/B.h -> files/C.h -> files/A.h"));
}

TEST(HouseRules, FileIncludedOnTwoWaysIsNoCircle) {
  const SourceTree tree = {{"files/A.h", {"#include \"files/B.h\"", "#include \"files/C.h\""}},
                           {"files/B.h", {"#include \"files/C.h\""}}};
  EXPECT_THAT(Circles(FileGraph(tree)), IsEmpty());
}

TEST(HouseRules, CircleOfFoldersIsFound) {
  const SourceTree tree = {{"fitting/A.h", {"#include \"lattice/B.h\""}},
                           {"lattice/C.h", {"#include \"fitting/D.h\""}}};
  EXPECT_THAT(Circles(FolderGraph(tree)), ElementsAre("fitting -> lattice -> fitting"));
}

TEST(HouseRules, ToolkitHeaderBelowTheOutsideIsFound) {
  const SourceTree tree = {{"display/A.cpp", {"#include <QPainter>", "#include <algorithm>"}},
                           {"qt/surface/B.cpp", {"#include <QPainter>"}}};
  EXPECT_THAT(ToolkitOutsideQt(tree), ElementsAre("display/A.cpp: #include <QPainter>"));
}

TEST(HouseRules, HeaderWithoutASentenceIsFound) {
  const SourceTree tree = {{"support/A.h", {"#pragma once", "// A value."}},
                           {"support/B.h", {"// No end", "#pragma once"}},
                           {"support/C.h", {"// A sentence over", "// two lines.", "#pragma once"}},
                           {"support/D.cpp", {"#include \"support/D.h\""}}};
  EXPECT_THAT(HeadersWithoutSentence(tree), ElementsAre("support/A.h", "support/B.h"));
}

TEST(HouseRules, LengthIsLimitedByKindOfFile) {
  const SourceTree tree = {{"support/A.cpp", Lines(3)}, {"support/A.h", Lines(3)}};
  EXPECT_THAT(LongFiles(tree, 2, 3), ElementsAre("support/A.h: 3 lines"));
  EXPECT_THAT(LongFiles(tree, 3, 2), ElementsAre("support/A.cpp: 3 lines"));
}

TEST(HouseRules, KeptWithoutReasonIsFound) {
  const SourceTree tree = {
      {"files/A.cpp", {"// KEPT: readers expect it.", "", "// KEPT:  ", "// KEPT:"}}};
  EXPECT_THAT(KeptWithoutReason(tree), ElementsAre("files/A.cpp:3", "files/A.cpp:4"));
}

}  // namespace
}  // namespace house
