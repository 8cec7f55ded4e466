// What stops the batch program's work on a file or on a command line, with a text for its user.
#pragma once

#include <stdexcept>

namespace dorvane {

// A file could not be worked on; exit status 1.
class BatchError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The command line asks for what cannot be; exit status 2.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace dorvane
