// Text between UTF-8, the form inside, and code page 932, the form on file.
#pragma once

#include <string>
#include <string_view>

namespace dorvane {

// UTF-8 to code page 932. What has no place there, and broken UTF-8, is written as "?". U+00C5 and
// U+212B are both the angstrom sign.
std::string ToCodePage(std::string_view utf8);

// Code page 932 to UTF-8. A byte that starts no character becomes U+FFFD.
std::string FromCodePage(std::string_view bytes);

// The longest head of code-page text with at most `size` bytes that splits no double-byte
// character, filled with blanks to exactly `size` bytes.
std::string CutCodePage(std::string_view bytes, std::size_t size);

}  // namespace dorvane
