#include "files/SplitPath.h"

#include <gtest/gtest.h>

namespace dorvane {
namespace {

using Names = std::vector<std::string>;

void ExpectParts(const std::string& path, const PathParts& expected) {
  const PathParts parts = SplitPath(path);
  EXPECT_EQ(parts.Drive, expected.Drive) << path;
  EXPECT_EQ(parts.Dir, expected.Dir) << path;
  EXPECT_EQ(parts.Name, expected.Name) << path;
  EXPECT_EQ(parts.Ext, expected.Ext) << path;
}

TEST(SplitPath, PlainPathHasNoDrive) {
  ExpectParts("/data/run 1/a.npd", {"", "/data/run 1/", "a", "npd"});
  ExpectParts("a.npd", {"", "", "a", "npd"});
  ExpectParts("/a.npd", {"", "/", "a", "npd"});
}

TEST(SplitPath, DriveAndBackslashes) {
  ExpectParts("C:\\data\\a.xbm", {"C:", "\\data\\", "a", "xbm"});
  ExpectParts("c:a.xbm", {"c:", "", "a", "xbm"});
  ExpectParts("C:/data/a.xbm", {"C:", "/data/", "a", "xbm"});
}

TEST(SplitPath, ServerAndShareAreTheDrive) {
  ExpectParts("\\\\server\\share\\dir\\a.xbm", {"\\\\server\\share", "\\dir\\", "a", "xbm"});
  ExpectParts("\\\\server\\share", {"\\\\server\\share", "", "", ""});
  ExpectParts("\\\\server", {"\\\\server", "", "", ""});
}

TEST(SplitPath, ExtensionBeginsAtTheLastPointOfTheFilePart) {
  ExpectParts("/v1.2/a.b.npd", {"", "/v1.2/", "a.b", "npd"});
  ExpectParts("/v1.2/a", {"", "/v1.2/", "a", ""});
  ExpectParts("a.", {"", "", "a", ""});
  ExpectParts(".hidden", {"", "", "", "hidden"});
}

TEST(SplitPath, AColonElsewhereIsACharacterOfTheName) {
  ExpectParts("/data/9:05:03.npd", {"", "/data/", "9:05:03", "npd"});
  ExpectParts("ab:c.npd", {"", "", "ab:c", "npd"});
  ExpectParts("1:c.npd", {"", "", "1:c", "npd"});
}

TEST(SplitPath, ABackslashIsACharacterOfTheNameWhereSlashesSeparate) {
  ExpectParts("/data/a\\b.npd", {"", "/data/", "a\\b", "npd"});
}

TEST(SplitPath, FolderAloneAndEmptyText) {
  ExpectParts("/data/", {"", "/data/", "", ""});
  ExpectParts("", {"", "", "", ""});
}

TEST(SplitFileList, CutsAtCommaSemicolonAndBlank) {
  EXPECT_EQ(SplitFileList("a.npd,b.npd;c.npd d.npd"), (Names{"a.npd", "b.npd", "c.npd", "d.npd"}));
}

TEST(SplitFileList, EmptyNamesAreLeftOut) {
  EXPECT_EQ(SplitFileList(" a.npd, b.npd ;"), (Names{"a.npd", "b.npd"}));
  EXPECT_EQ(SplitFileList(""), Names{});
  EXPECT_EQ(SplitFileList(" ,; "), Names{});
}

}  // namespace
}  // namespace dorvane
