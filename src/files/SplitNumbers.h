// Header lines of text formats: the numbers and fields of a line, and the forms in which dates and
// times stand there.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace dorvane {

constexpr std::size_t kMostNumbers = 11;
constexpr std::size_t kMostFields = 21;

// The numbers of a text, separated by a comma, with blanks about it or without, or by blanks alone;
// of its first 99 characters, and at most `out.size()` or 11 of them. Answers how many; places
// behind them become 0. An empty piece between two commas counts as 0. Throws Fault(NotANumber) for
// a piece that is none.
std::size_t SplitNumbers(std::string_view text, std::span<double> out);

// The same for fields of text, separated by "," or ";" or blanks; at most `out.size()` or 21.
std::size_t SplitFields(std::string_view text, std::span<std::string_view> out);

// "yy/mm/dd" to "yyyymmdd": years below 30 are 20yy, others 19yy. Empty where the year is none.
std::string DateFromYmd(std::string_view text);
// "hh:mm:ss" to "hhmmss", by position.
std::string TimeFromHms(std::string_view text);
// "yyyymmdd" to "yy/mm/dd". Empty where the first four characters are no number.
std::string DateToYmd(std::string_view text);
// "hhmmss" to "hh:mm:ss", by position.
std::string TimeToHms(std::string_view text);

}  // namespace dorvane
