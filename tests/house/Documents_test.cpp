// Links in the documents lead somewhere.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <regex>

#include "house/SourceTree.h"

namespace house {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = DORVANE_SOURCE_DIR;

std::vector<fs::path> Documents() {
  std::vector<fs::path> documents = {kRoot / "README.md", kRoot / "CHANGELOG.md"};
  for (const char* folder : {"docs", "data", "samples", "fuzz"}) {
    for (const auto& entry : fs::recursive_directory_iterator(kRoot / folder)) {
      if (entry.path().extension() == ".md") documents.push_back(entry.path());
    }
  }
  return documents;
}

Lines LinesOf(const fs::path& path) {
  Lines lines;
  std::ifstream stream(path);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// The name by which a link leads to a heading: small letters, digits and hyphens, one for a blank.
std::string AnchorOf(std::string_view heading) {
  std::string anchor;
  for (const char c : heading.substr(heading.find_first_not_of("# "))) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == ' ') anchor += '-';
    if (c == '-' || c == '_' || byte >= 0x80) anchor += c;
    if (byte < 0x80 && std::isalnum(byte) != 0) anchor += static_cast<char>(std::tolower(byte));
  }
  return anchor;
}

bool HasHeading(const fs::path& document, const std::string& anchor) {
  const Lines lines = LinesOf(document);
  return std::any_of(lines.begin(), lines.end(), [&](const std::string& line) {
    return line.starts_with("#") && AnchorOf(line) == anchor;
  });
}

// Where the links of a line lead, without those to other hosts.
std::vector<std::string> LinksOf(const std::string& line) {
  static const std::regex link(R"(\]\(([^()\s]+)\))");
  std::vector<std::string> targets;
  for (std::sregex_iterator it(line.begin(), line.end(), link), end; it != end; ++it) {
    const std::string target = (*it)[1];
    if (target.find("://") == std::string::npos) targets.push_back(target);
  }
  return targets;
}

bool Leads(const fs::path& document, const std::string& target) {
  const auto mark = target.find('#');
  const std::string file = target.substr(0, mark);
  const fs::path path = file.empty() ? document : document.parent_path() / file;
  if (!fs::exists(path)) return false;
  return mark == std::string::npos || HasHeading(path, target.substr(mark + 1));
}

TEST(Documents, EveryLinkLeadsSomewhere) {
  int links = 0;
  for (const fs::path& document : Documents()) {
    for (const std::string& line : LinesOf(document)) {
      for (const std::string& target : LinksOf(line)) {
        EXPECT_TRUE(Leads(document, target)) << document << ": " << target;
        ++links;
      }
    }
  }
  EXPECT_GT(links, 20);
}

TEST(Documents, EveryPictureIsShown) {
  std::string text;
  for (const fs::path& document : Documents()) {
    for (const std::string& line : LinesOf(document)) text += line;
  }
  for (const auto& entry : fs::directory_iterator(kRoot / "docs/pictures")) {
    const std::string name = "pictures/" + entry.path().filename().string();
    EXPECT_TRUE(text.find(name) != std::string::npos) << name;
  }
}

TEST(DocumentRules, AnchorIsTheHeadingInSmallLettersWithHyphens) {
  EXPECT_EQ(AnchorOf("## The two families of fit"), "the-two-families-of-fit");
  EXPECT_EQ(AnchorOf("# crystal.dat: the crystal library"), "crystaldat-the-crystal-library");
}

TEST(DocumentRules, LinksToOtherHostsAreNotFollowed) {
  EXPECT_THAT(LinksOf("[a](b.md#c) ![d](e.png) [f](https://host/g)"),
              testing::ElementsAre("b.md#c", "e.png"));
}

}  // namespace
}  // namespace house
