// The transcripts in the documents: every command is run, and prints what stands below it.
#include <gtest/gtest.h>

#include <fstream>

#include "batch/BatchFixture.h"

namespace dorvane {
namespace {

struct Transcript {
  std::string command;
  std::string output;
};

// The blocks that start with "```console" and a line "$ command".
std::vector<Transcript> TranscriptsOf(const std::string& path) {
  std::vector<Transcript> found;
  std::ifstream document(path);
  bool inside = false;
  for (std::string line; std::getline(document, line);) {
    if (line.starts_with("```")) {
      inside = line == "```console";
    } else if (inside && line.starts_with("$ ")) {
      found.push_back({line.substr(2), ""});
    } else if (inside && !found.empty()) {
      found.back().output += line + "\n";
    }
  }
  return found;
}

// Words separated by blanks, with double quotes around those that hold blanks.
std::vector<std::string> WordsOf(const std::string& command) {
  std::vector<std::string> words;
  std::string word;
  bool quoted = false;
  for (const char c : command + " ") {
    if (c == '"') {
      quoted = !quoted;
    } else if (c == ' ' && !quoted) {
      if (!word.empty()) words.push_back(std::move(word));
      word.clear();
    } else {
      word += c;
    }
  }
  return words;
}

std::string WithoutBlankEnd(std::string text) {
  while (text.ends_with("\n")) text.pop_back();
  return text;
}

class TranscriptTest : public BatchTest {
 protected:
  static void Replay(const std::string& document) {
    const std::vector<Transcript> transcripts = TranscriptsOf(DORVANE_SOURCE_DIR "/" + document);
    ASSERT_FALSE(transcripts.empty());
    for (const Transcript& transcript : transcripts) {
      std::vector<std::string> words = WordsOf(transcript.command);
      ASSERT_EQ(words.front(), "dorvane-batch");
      words.erase(words.begin());
      std::ostringstream screen;
      RunInto(words, screen, screen);
      EXPECT_EQ(WithoutBlankEnd(screen.str()), WithoutBlankEnd(transcript.output))
          << transcript.command;
    }
  }
};

TEST_F(TranscriptTest, BatchPageShowsWhatTheProgramPrints) {
  Replay("docs/batch.md");
}

TEST_F(TranscriptTest, SamplesPageShowsWhatTheProgramPrints) {
  Replay("samples/README.md");
}

TEST_F(TranscriptTest, SimulatedSamplesAreWhatTheirCommandsMake) {
  Replay("samples/README.md");
  for (const char* name :
       {"nacl_5GPa.npd", "nacl_5GPa.json", "gold_ambient.npd", "gold_ambient.json"}) {
    EXPECT_EQ(folder.Get(name), folder.Get(std::string("samples/") + name)) << name;
  }
}

}  // namespace
}  // namespace dorvane
