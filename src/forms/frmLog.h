// The log window: the last 200 lines of the program's messages.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "support/Fixed.h"
#include "support/LogSink.h"

namespace dorvane {

// Hidden, never destroyed while the program runs, so that the lines survive.
class frmLog : public Form, public LogSink {
 public:
  explicit frmLog(FormHost& host);

  // Adds a line and shows it; the 201st pushes the oldest one out.
  void PutLog(std::string_view text) override;
  // Shows the lines, oldest first, each with CR LF behind it.
  void DispLog();

  void cmdClear_Click();
  void cmdHide_Click() { Hide(); }

  TextBox txtMessage{controls_, "txtMessage"};
  Button cmdClear{controls_, "cmdClear", "Clear"};
  Button cmdHide{controls_, "cmdHide", "Hide"};

 private:
  // KEPT: a place more than the ring uses, which wraps before the last one: 200 lines are what the
  // window shows.
  Fixed<std::string, 0, 200> lines_;
  std::int16_t LogPut_ = 0;    // where the next line goes
  std::int16_t LogTop_ = 0;    // the oldest line
  std::int16_t LogCount_ = 0;  // lines kept
};

}  // namespace dorvane
