// The batch program run as a user runs it, in a folder of its own beside the samples.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "batch/CommandLine.h"
#include "support/TemporaryFolder.h"

namespace dorvane {

struct BatchRun {
  int status = -1;
  std::string out;
  std::string err;
};

class BatchTest : public testing::Test {
 protected:
  BatchTest() : before_(std::filesystem::current_path()) {
    std::filesystem::create_directory_symlink(DORVANE_SOURCE_DIR "/samples",
                                              folder.Path("samples"));
    std::filesystem::current_path(folder.Path(""));
  }
  ~BatchTest() override { std::filesystem::current_path(before_); }

  static BatchRun Run(std::vector<std::string> words) {
    std::ostringstream out, err;
    BatchRun run;
    run.status = RunInto(std::move(words), out, err);
    run.out = out.str();
    run.err = err.str();
    return run;
  }

  static int RunInto(std::vector<std::string> words, std::ostream& out, std::ostream& err) {
    words.insert(words.begin(), "dorvane-batch");
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    return RunBatch(static_cast<int>(words.size()), argv.data(), out, err);
  }

  TemporaryFolder folder;

 private:
  std::filesystem::path before_;
};

}  // namespace dorvane
