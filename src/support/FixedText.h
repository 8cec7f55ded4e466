// Text of a fixed number of bytes in code page 932, blank-padded: a text field of a record, kept as it is on file.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "support/CodePage.h"
#include "support/NumberText.h"

namespace dorvane {

// The bytes are kept untouched, so that a field that is only carried comes back byte for byte.
template <std::size_t Size>
class FixedText {
 public:
  FixedText() { bytes_.fill(' '); }
  explicit FixedText(std::string_view utf8) { Set(utf8); }

  // Converts, cuts at a character's border, fills with blanks.
  void Set(std::string_view utf8) {
    const std::string cut = CutCodePage(ToCodePage(utf8), Size);
    std::copy(cut.begin(), cut.end(), bytes_.begin());
  }

  // UTF-8 without the blanks (and NULs) at the end, and without leading blanks.
  std::string Text() const {
    std::string_view view = Bytes();
    const auto last = view.find_last_not_of(std::string_view(" \0", 2));
    view = last == std::string_view::npos ? std::string_view() : view.substr(0, last + 1);
    const auto first = view.find_first_not_of(' ');
    return FromCodePage(first == std::string_view::npos ? view : view.substr(first));
  }

  std::string_view Bytes() const { return {bytes_.data(), Size}; }
  std::array<char, Size>& Raw() { return bytes_; }
  void Clear() { bytes_.fill(' '); }

  friend bool operator==(const FixedText&, const FixedText&) = default;

 private:
  std::array<char, Size> bytes_;
};

}  // namespace dorvane
