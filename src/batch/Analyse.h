// The command "analyse": the main job on any number of files, several at a time, results written
// and printed in the order of the files.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "batch/Analysis.h"

namespace dorvane {

enum class PrintFormat { Table, Csv, Json };

struct AnalyseOptions {
  std::vector<std::string> files;
  AnalysisRequest request;
  std::string crystal_file;  // empty for the library of the program
  std::string out = ".";     // folder of the results; made where it is missing
  std::string log;  // file for the logs of the lattice works, one after the other; empty: none
  std::string picture = "png";
  PrintFormat format = PrintFormat::Table;
  bool quiet = false;
  bool overwrite = false;
};

// Exit status: 0 all done, 1 some files failed, each told in one line on `err`. Results that exist
// are refused before any work, unless they may be overwritten. Throws UsageError for what the
// options ask for and cannot be. Pictures need the toolkit's application, which takes argc and argv
// as main has them.
int RunAnalyse(const AnalyseOptions& options, int& argc, char** argv, std::ostream& out,
               std::ostream& err);

}  // namespace dorvane
