// The handbooks keep step with the tables and the messages of the program.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "forms/FormFixture.h"
#include "forms/MenuTable.h"
#include "forms/frmKeys.h"
#include "house/SourceTree.h"

namespace dorvane {
namespace {

using house::Lines;

constexpr std::size_t kColumns = 78;

Lines LinesOf(const std::filesystem::path& path) {
  Lines lines;
  std::ifstream stream(path);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

const Lines& ReadMe() {
  static const Lines lines = LinesOf(DORVANE_SOURCE_DIR "/data/ReadMe.txt");
  return lines;
}

// Characters, not bytes.
std::size_t Length(std::string_view utf8) {
  return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  }));
}

// Whether a line of a list begins with a name: two blanks, the name, and at least two blanks before
// what is said about it.
bool Lists(std::string_view name) {
  const std::string head = "  " + std::string(name) + "  ";
  return std::any_of(ReadMe().begin(), ReadMe().end(),
                     [&](const std::string& line) { return line.starts_with(head); });
}

// The words with one blank between them, whatever blanks and line ends were there.
std::string Flat(const Lines& lines) {
  std::string flat;
  for (const std::string& line : lines) {
    std::istringstream words(line);
    for (std::string word; words >> word;) flat += (flat.empty() ? "" : " ") + word;
  }
  return flat;
}

std::string PlainCaption(const MenuRow& row) {
  std::string plain(row.caption.substr(0, row.caption.find("...")));
  std::erase(plain, '&');
  return plain;
}

// The texts between quotation marks of a line of source.
std::vector<std::string> LiteralsOf(const std::string& line) {
  std::vector<std::string> literals;
  std::string text;
  bool inside = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '"') {
      if (inside) literals.push_back(text);
      inside = !inside;
      text.clear();
    } else if (inside) {
      if (line[i] == '\\') ++i;
      text += line[i];
    }
  }
  return literals;
}

bool ShowsABox(const std::string& line) {
  return line.find(".Message(\"") != std::string::npos ||
         line.find("Refuse(\"") != std::string::npos ||
         line.find("question.text = \"") != std::string::npos;
}

void ExpectEveryMessageIn(const Lines& document) {
  const std::string text = Flat(document);
  int messages = 0;
  for (const auto& [path, lines] : house::ReadSourceTree(DORVANE_SOURCE_DIR "/src")) {
    if (path.starts_with("batch/") || path.starts_with("qt/")) continue;
    for (const std::string& line : lines) {
      if (!ShowsABox(line)) continue;
      for (const std::string& literal : LiteralsOf(line)) {
        EXPECT_TRUE(text.find(Flat({literal})) != std::string::npos) << path << ": " << literal;
        ++messages;
      }
    }
  }
  EXPECT_GT(messages, 20);
}

TEST(ReadMe, IsWrappedForATerminalAndHoldsNoTab) {
  ASSERT_FALSE(ReadMe().empty());
  for (std::size_t i = 0; i < ReadMe().size(); ++i) {
    EXPECT_LE(Length(ReadMe()[i]), kColumns) << "line " << i + 1;
    EXPECT_EQ(ReadMe()[i].find('\t'), std::string::npos) << "line " << i + 1;
  }
}

TEST(ReadMe, NamesEveryMenuEntry) {
  int entries = 0;
  for (const MenuRow& row : MenuTable()) {
    if (row.parent.empty()) continue;
    EXPECT_TRUE(Lists(PlainCaption(row))) << row.name << ": " << PlainCaption(row);
    ++entries;
  }
  EXPECT_GT(entries, 0);
}

TEST(ReadMe, NamesEveryKeyAndWhatTheMouseDoes) {
  ScriptedFormHost host;
  const frmKeys keys(host);
  ASSERT_GT(keys.sprKeys.MaxRows(), 0);
  for (int row = 1; row <= keys.sprKeys.MaxRows(); ++row) {
    const std::string key = keys.sprKeys.Text(row, frmKeys::kKey);
    EXPECT_TRUE(Lists(key)) << key;
  }
}

TEST(ReadMe, HoldsEveryMessageThatTheSourcesShow) {
  ExpectEveryMessageIn(ReadMe());
}

TEST(Handbook, HoldsEveryMessageThatTheSourcesShow) {
  ExpectEveryMessageIn(LinesOf(DORVANE_SOURCE_DIR "/docs/handbook.md"));
}

}  // namespace
}  // namespace dorvane
