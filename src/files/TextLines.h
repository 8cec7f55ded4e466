// Text formats line by line: the lines and fields of an image without a copy, and images built of
// lines. All text is in the code page; none of its double-byte characters holds a comma, an equals
// sign, a blank or a line end.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "support/Bytes.h"

namespace dorvane {

// Takes lines off an image that must outlive it. Lines end in CR LF or LF; the last may lack its
// end.
class LineReader {
 public:
  explicit LineReader(std::span<const std::byte> bytes) : rest_(AsText(bytes)) {}

  // The next line without its end. Throws Fault(EndOfFile) when none is left.
  std::string_view Next();
  void Skip(int lines);
  bool AtEnd() const { return rest_.empty(); }

 private:
  std::string_view rest_;
};

// The `size` characters from `at`, less where the text ends, none behind it.
inline std::string_view Piece(std::string_view text, std::size_t at, std::size_t size) {
  return at < text.size() ? text.substr(at, size) : std::string_view();
}

// The text behind the `commas`-th comma, trimmed; empty where the line has fewer.
std::string_view BehindComma(std::string_view line, int commas = 1);

// Builds an image of lines that end in CR LF.
class LineWriter {
 public:
  // One line of the parts one behind the other. Control characters in them become blanks, so that a
  // text cannot break the lines.
  void Line(std::initializer_list<std::string_view> parts);
  ByteVector Take() const;

 private:
  std::string text_;
};

}  // namespace dorvane
