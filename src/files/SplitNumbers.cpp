#include "files/SplitNumbers.h"

#include <algorithm>
#include <array>

#include "files/TextLines.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr std::size_t kMostCharacters = 99;
constexpr std::string_view kBlanks = " \t";

std::size_t Split(std::string_view text, std::string_view separators,
                  std::span<std::string_view> out) {
  text = Trim(text.substr(0, kMostCharacters));
  const std::string ends = std::string(separators).append(kBlanks);
  std::size_t count = 0;
  while (!text.empty() && count < out.size()) {
    const std::size_t end = std::min(text.find_first_of(ends), text.size());
    out[count++] = text.substr(0, end);
    text = Trim(text.substr(end));
    if (!text.empty() && separators.find(text.front()) != std::string_view::npos) {
      text = Trim(text.substr(1));
    }
  }
  return count;
}

// The same, filled with blanks.
std::string Columns(std::string_view text, std::size_t at, int size) {
  return PadRight(Piece(text, at, static_cast<std::size_t>(size)), size);
}

}  // namespace

std::size_t SplitNumbers(std::string_view text, std::span<double> out) {
  std::array<std::string_view, kMostNumbers> pieces;
  const std::size_t count =
      Split(text, ",", std::span(pieces).first(std::min(out.size(), kMostNumbers)));
  std::fill(out.begin(), out.end(), 0.0);
  for (std::size_t i = 0; i < count; ++i) {
    if (!pieces[i].empty()) out[i] = NumberOf(pieces[i]);
  }
  return count;
}

std::size_t SplitFields(std::string_view text, std::span<std::string_view> out) {
  return Split(text, ",;", out.first(std::min(out.size(), kMostFields)));
}

std::string DateFromYmd(std::string_view text) {
  constexpr double kFirstYearOf1900 = 30;
  const auto year = ParseNumber(Piece(text, 0, 2));
  if (!year || *year < 0) return {};
  std::string date = *year < kFirstYearOf1900 ? "20" : "19";
  return date.append(Picture(*year, "00")).append(Columns(text, 3, 2)).append(Columns(text, 6, 2));
}

std::string TimeFromHms(std::string_view text) {
  return Columns(text, 0, 2) + Columns(text, 3, 2) + Columns(text, 6, 2);
}

std::string DateToYmd(std::string_view text) {
  if (!IsNumeric(Piece(text, 0, 4))) return {};
  return Columns(text, 2, 2) + "/" + Columns(text, 4, 2) + "/" + Columns(text, 6, 2);
}

std::string TimeToHms(std::string_view text) {
  return Columns(text, 0, 2) + ":" + Columns(text, 2, 2) + ":" + Columns(text, 4, 2);
}

}  // namespace dorvane
