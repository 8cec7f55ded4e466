// Images of files that tests put together by hand: texts of lines, and binary images byte by byte.
#pragma once

#include <bit>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "support/FileLayer.h"

namespace dorvane {

using Lines = std::vector<std::string>;

inline std::string Joined(const Lines& lines, const std::string& line_end = "\r\n") {
  std::string text;
  for (const std::string& line : lines) text += line + line_end;
  return text;
}

// The lines of a text whose every line ends in `line_end`.
inline Lines LinesOf(std::string_view text, std::string_view line_end = "\r\n") {
  Lines lines;
  while (!text.empty()) {
    const auto end = text.find(line_end);
    if (end == std::string_view::npos) throw std::runtime_error("the last line has no end");
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(end + line_end.size());
  }
  return lines;
}

// Filled with blanks at the right.
inline std::string Columns(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

// `size` bytes of a number, the lowest first.
inline void PutBytes(std::string& image, std::size_t offset, std::uint32_t value, int size) {
  for (int i = 0; i < size; ++i) {
    image.at(offset + static_cast<std::size_t>(i)) = static_cast<char>((value >> (8 * i)) & 0xFF);
  }
}

inline void PutWord(std::string& image, std::size_t offset, std::int32_t value) {
  PutBytes(image, offset, std::bit_cast<std::uint32_t>(value), 4);
}

inline void PutFloat(std::string& image, std::size_t offset, float value) {
  PutBytes(image, offset, std::bit_cast<std::uint32_t>(value), 4);
}

inline void PutText(std::string& image, std::size_t offset, std::string_view text) {
  image.replace(offset, text.size(), text);
}

// The example at the end of a page in docs/formats, line by line.
inline Lines WorkedExample(const std::string& page) {
  SystemFileLayer files;
  const ByteVector bytes =
      ReadFile(files, std::string(DORVANE_SOURCE_DIR) + "/docs/formats/" + page);
  std::string_view text = AsText(bytes);
  text = text.substr(text.find("## Worked example"));
  text = text.substr(text.find("```\n") + 4);
  return LinesOf(text.substr(0, text.find("```")), "\n");
}

}  // namespace dorvane
