// The batch program's command line: its commands, options and exit statuses.
#pragma once

#include <iosfwd>

namespace dorvane {

// Exit status: 0 all done, 1 something failed, 2 bad usage. argc and argv as main has them.
int RunBatch(int argc, char** argv, std::ostream& out, std::ostream& err);

}  // namespace dorvane
