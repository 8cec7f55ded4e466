// Text of a fixed number of bytes in code page 932, blank-padded: a text field of a record, kept as
// it is on file.
#pragma once

#include <algorithm>
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
  void Set(std::string_view utf8) { SetBytes(ToCodePage(utf8)); }

  // The same for text that is in the code page already.
  void SetBytes(std::string_view bytes) {
    const std::string cut = CutCodePage(bytes, Size);
    std::copy(cut.begin(), cut.end(), bytes_.begin());
  }

  // UTF-8 of TrimmedBytes.
  std::string Text() const { return FromCodePage(TrimmedBytes()); }

  // Without the blanks (and NULs) at the end, and without leading blanks.
  std::string_view TrimmedBytes() const {
    std::string_view view = Bytes();
    view = view.substr(0, view.find_last_not_of(std::string_view(" \0", 2)) + 1);
    return view.substr(std::min(view.find_first_not_of(' '), view.size()));
  }

  std::string_view Bytes() const { return {bytes_.data(), Size}; }
  std::array<char, Size>& Raw() { return bytes_; }
  void Clear() { bytes_.fill(' '); }

  friend bool operator==(const FixedText&, const FixedText&) = default;

 private:
  std::array<char, Size> bytes_;
};

}  // namespace dorvane
