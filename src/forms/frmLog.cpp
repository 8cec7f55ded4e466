#include "forms/frmLog.h"

#include <utility>

namespace dorvane {
namespace {

constexpr std::int16_t kRing = 200;

void Advance(std::int16_t& index) {
  if (++index == kRing) index = 0;
}

}  // namespace

frmLog::frmLog(FormHost& host) : Form(host, "frmLog", "Log") {
  txtMessage.SetReadOnly(true);
  txtMessage.SetSeveralLines(true);
  cmdClear.Click.Connect([this] { cmdClear_Click(); });
  cmdHide.Click.Connect([this] { cmdHide_Click(); });
}

void frmLog::PutLog(std::string_view text) {
  lines_[LogPut_] = std::string(text) + "\r\n";
  if (LogCount_ < kRing) {
    ++LogCount_;
  } else {
    Advance(LogTop_);
  }
  Advance(LogPut_);
  DispLog();
}

void frmLog::DispLog() {
  std::string text;
  std::int16_t index = LogTop_;
  for (int i = 0; i < LogCount_; ++i) {
    text += lines_[index];
    Advance(index);
  }
  txtMessage.SetText(std::move(text));
}

void frmLog::cmdClear_Click() {
  LogTop_ = 0;
  LogPut_ = 0;
  LogCount_ = 0;
  txtMessage.SetText("");
}

}  // namespace dorvane
