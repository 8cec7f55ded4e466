// Keeps the lines of the log in memory.
#pragma once

#include <deque>
#include <string>

#include "support/LogSink.h"

namespace dorvane {

class KeptLog : public LogSink {
 public:
  static constexpr std::size_t kMostLines = 10000;  // older ones go

  void PutLog(std::string_view text) override {
    lines_.emplace_back(text);
    if (lines_.size() > kMostLines) lines_.pop_front();
  }
  const std::deque<std::string>& Lines() const { return lines_; }

 private:
  std::deque<std::string> lines_;
};

}  // namespace dorvane
