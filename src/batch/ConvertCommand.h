// The command "convert": spectrum files into another format, in bulk.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace dorvane {

struct ConvertOptions {
  std::vector<std::string> files;
  std::string to;         // extension, with its dot or without
  std::string out = ".";  // folder of the converted files; made where it is missing
  bool quiet = false;
  bool overwrite = false;
};

// Adds the subcommand with its options.
void AddConvert(CLI::App& app, ConvertOptions& options);

// Each file is whole on disk before the next is told. Exit status: 0 all done, 1 some files failed,
// each told in one line on `err`. Results that exist are refused before any work, unless they may
// be overwritten; a file to be converted is never replaced. Throws UsageError for what the options
// ask for and cannot be.
int RunConvert(const ConvertOptions& options, std::ostream& out, std::ostream& err);

}  // namespace dorvane
