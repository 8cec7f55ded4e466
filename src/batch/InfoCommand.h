// The command "info": what the header of a spectrum file says, and the sums of its counts.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace dorvane {

struct InfoOptions {
  std::vector<std::string> files;
};

// Adds the subcommand with its options.
void AddInfo(CLI::App& app, InfoOptions& options);

// Exit status: 0 all done, 1 some files failed, each told in one line on `err`.
int RunInfo(const InfoOptions& options, std::ostream& out, std::ostream& err);

}  // namespace dorvane
