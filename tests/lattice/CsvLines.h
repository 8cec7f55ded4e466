// The text of a file of records, told as lines.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>

#include "support/CodePage.h"

namespace dorvane {

// The bytes of a file with these lines, which are UTF-8 with single quotes for double ones.
inline std::string CsvLines(std::initializer_list<std::string_view> lines) {
  std::string text;
  for (const std::string_view line : lines) text += std::string(line) + "\r\n";
  std::replace(text.begin(), text.end(), '\'', '"');
  return ToCodePage(text);
}

}  // namespace dorvane
