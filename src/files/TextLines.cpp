#include "files/TextLines.h"

#include <algorithm>

#include "support/Fault.h"
#include "support/NumberText.h"

namespace dorvane {

std::string_view LineReader::Next() {
  if (rest_.empty()) throw Fault(FaultCode::EndOfFile);
  const std::size_t length = std::min(rest_.find('\n'), rest_.size());
  std::string_view line = rest_.substr(0, length);
  rest_.remove_prefix(std::min(length + 1, rest_.size()));
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

void LineReader::Skip(int lines) {
  for (int i = 0; i < lines; ++i) Next();
}

std::string_view BehindComma(std::string_view line, int commas) {
  for (int i = 0; i < commas; ++i) {
    const auto comma = line.find(',');
    if (comma == std::string_view::npos) return {};
    line.remove_prefix(comma + 1);
  }
  return Trim(line);
}

void LineWriter::Line(std::initializer_list<std::string_view> parts) {
  const std::size_t start = text_.size();
  for (const std::string_view part : parts) text_ += part;
  std::replace_if(
      text_.begin() + static_cast<std::ptrdiff_t>(start), text_.end(),
      [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  text_ += "\r\n";
}

ByteVector LineWriter::Take() const {
  const auto bytes = AsBytes(text_);
  return {bytes.begin(), bytes.end()};
}

}  // namespace dorvane
