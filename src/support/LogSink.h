// The port for the lines of the log window.
#pragma once

#include <string_view>

namespace dorvane {

class LogSink {
 public:
  virtual ~LogSink() = default;
  virtual void PutLog(std::string_view text) = 0;
};

}  // namespace dorvane
