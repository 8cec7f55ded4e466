// The one error type that operations throw inside a module and stop at its public face.
#pragma once

#include <stdexcept>
#include <string>

namespace dorvane {

// Numbers of the faults; all are 5 or more, so that a fit's status can tell them from its own
// codes.
enum class FaultCode {
  BadArgument = 5,
  Overflow = 6,
  Subscript = 9,
  DivisionByZero = 11,
  NotANumber = 13,
  FileNotFound = 53,
  FileFailed = 57,
  EndOfFile = 62,
  PermissionDenied = 70,
};

// English text of a fault, as the plain box of the command boundary shows it.
const char* FaultText(FaultCode code);

class Fault : public std::runtime_error {
 public:
  explicit Fault(FaultCode code) : std::runtime_error(FaultText(code)), code_(code) {}
  // `detail` follows the fault's text after ": ".
  Fault(FaultCode code, const std::string& detail)
      : std::runtime_error(std::string(FaultText(code)) + ": " + detail), code_(code) {}

  FaultCode Code() const { return code_; }
  int Number() const { return static_cast<int>(code_); }

 private:
  FaultCode code_;
};

}  // namespace dorvane
