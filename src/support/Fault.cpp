#include "support/Fault.h"

namespace dorvane {

const char* FaultText(FaultCode code) {
  switch (code) {
    case FaultCode::BadArgument:
      return "Bad argument";
    case FaultCode::Overflow:
      return "Overflow";
    case FaultCode::Subscript:
      return "Subscript out of range";
    case FaultCode::DivisionByZero:
      return "Division by zero";
    case FaultCode::NotANumber:
      return "Not a number";
    case FaultCode::FileNotFound:
      return "File not found";
    case FaultCode::FileFailed:
      return "The file could not be read or written";
    case FaultCode::EndOfFile:
      return "The file ends too early";
    case FaultCode::PermissionDenied:
      return "Permission denied";
  }
  return "Unknown fault";
}

}  // namespace dorvane
