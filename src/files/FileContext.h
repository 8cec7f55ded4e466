// What every operation on a file is handed: the file layer, the dialogs and the type of the last
// file read.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "support/Dialogs.h"
#include "support/Fault.h"
#include "support/FileLayer.h"
#include "support/Rounding.h"

namespace dorvane {

struct FileContext {
  FileLayer& files;
  Dialogs& dialogs;
  std::int16_t& last_data_type;  // Workspace::LastDataType
};

constexpr std::string_view kOpenError = "Open Error";

// The answer of `action`, -1 or 0; a Fault in it ends in a plain box with `message`, and 0.
template <typename Action>
std::int16_t Guarded(FileContext& context, std::string_view message, Action&& action) {
  try {
    return action();
  } catch (const Fault&) {
    context.dialogs.Message(message);
    return kFalse;
  }
}

// A count of a file, 0..limit, as it is; throws Fault(Subscript) outside of them.
inline std::int16_t CheckedCount(std::int16_t count, int limit) {
  if (count < 0 || count > limit) throw Fault(FaultCode::Subscript);
  return count;
}

// The Yes/No box in front of replacing a file; No is the default.
inline bool AskReplace(FileContext& context, std::string_view text) {
  Question question;
  question.text = text;
  return context.dialogs.AskYesNo(question);
}

}  // namespace dorvane
