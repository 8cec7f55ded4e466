#include "support/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "support/Fault.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr int kSignificantDigits = 15;

// A number as its decimal digits: 0.d1d2d3... * 10^point.
struct Digits {
  std::string digits;  // no leading zeros; empty for zero
  int point = 0;
};

Digits DigitsOf(double magnitude) {
  if (magnitude == 0.0) return {};
  std::array<char, 40> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), magnitude,
                                 std::chars_format::scientific, kSignificantDigits - 1);
  const std::string_view view(text.data(), static_cast<std::size_t>(end.ptr - text.data()));
  const auto exponent_at = view.find('e');
  Digits result;
  for (const char c : view.substr(0, exponent_at)) {
    if (c >= '0' && c <= '9') result.digits += c;
  }
  int exponent = 0;
  const char* first = view.data() + exponent_at + 1;
  if (*first == '+') ++first;
  std::from_chars(first, view.data() + view.size(), exponent);
  result.point = exponent + 1;
  return result;
}

// Rounds half away from zero so that `places` digits stand behind the decimal point.
void RoundAtPlace(Digits& number, int places) {
  const int keep = number.point + places;
  const int size = static_cast<int>(number.digits.size());
  if (keep >= size) return;
  if (keep < 0) {
    number.digits.clear();
    return;
  }
  const auto cut = static_cast<std::size_t>(keep);
  const bool up = number.digits[cut] >= '5';
  number.digits.resize(cut);
  if (!up) return;
  for (std::size_t i = cut; i-- > 0;) {
    if (number.digits[i] != '9') {
      ++number.digits[i];
      return;
    }
    number.digits[i] = '0';
  }
  number.digits.insert(number.digits.begin(), '1');
  ++number.point;
}

bool AllZeros(const std::string& digits) {
  return std::all_of(digits.begin(), digits.end(), [](char c) { return c == '0'; });
}

// A picture taken apart. Shown digits: `integer_min` before the point, fraction between min and max
// behind it.
struct Parts {
  std::string prefix;
  std::string suffix;
  int integer_min = 0;
  int integer_places = 0;
  bool thousands = false;
  bool point = false;
  int fraction_min = 0;
  int fraction_max = 0;
  char exponent = 0;  // 'E' or 'e'
  bool exponent_plus = false;
  int exponent_min = 0;
};

Parts PartsOf(std::string_view picture) {
  Parts parts;
  std::size_t i = 0;
  const auto is_digit_sign = [](char c) { return c == '0' || c == '#'; };
  while (i < picture.size() && !is_digit_sign(picture[i]) && picture[i] != '.') {
    parts.prefix += picture[i++];
  }
  bool zero_seen = false;
  for (; i < picture.size() && (is_digit_sign(picture[i]) || picture[i] == ','); ++i) {
    if (picture[i] == ',') {
      parts.thousands = true;
      continue;
    }
    zero_seen = zero_seen || picture[i] == '0';
    ++parts.integer_places;
    if (zero_seen) ++parts.integer_min;
  }
  if (i < picture.size() && picture[i] == '.') {
    parts.point = true;
    for (++i; i < picture.size() && is_digit_sign(picture[i]); ++i) {
      ++parts.fraction_max;
      if (picture[i] == '0') parts.fraction_min = parts.fraction_max;
    }
  }
  if (i + 1 < picture.size() && (picture[i] == 'E' || picture[i] == 'e') &&
      (picture[i + 1] == '+' || picture[i + 1] == '-')) {
    parts.exponent = picture[i];
    parts.exponent_plus = picture[i + 1] == '+';
    for (i += 2; i < picture.size() && picture[i] == '0'; ++i) ++parts.exponent_min;
  }
  parts.suffix = std::string(picture.substr(i));
  return parts;
}

std::string IntegerText(const Digits& number, const Parts& parts) {
  std::string text;
  for (int i = 0; i < number.point; ++i) {
    text += i < static_cast<int>(number.digits.size()) ? number.digits[static_cast<std::size_t>(i)]
                                                       : '0';
  }
  if (static_cast<int>(text.size()) < parts.integer_min) {
    text.insert(0, static_cast<std::size_t>(parts.integer_min) - text.size(), '0');
  }
  if (parts.thousands) {
    for (std::size_t i = text.size(); i > 3; i -= 3) text.insert(i - 3, 1, ',');
  }
  return text;
}

std::string FractionText(const Digits& number, const Parts& parts) {
  std::string text;
  for (int i = 0; i < parts.fraction_max; ++i) {
    const int place = number.point + i;
    const bool inside = place >= 0 && place < static_cast<int>(number.digits.size());
    text += inside ? number.digits[static_cast<std::size_t>(place)] : '0';
  }
  while (static_cast<int>(text.size()) > parts.fraction_min && text.back() == '0') text.pop_back();
  return text;
}

std::string Compose(const Digits& number, const Parts& parts) {
  std::string text = IntegerText(number, parts);
  if (parts.point) text += '.' + FractionText(number, parts);
  return text;
}

// Mantissa and exponent: the mantissa has as many digits before the point as the picture has
// places.
std::string ComposeExponent(Digits number, const Parts& parts) {
  int exponent = 0;
  if (!number.digits.empty()) {
    const int places = std::max(parts.integer_places, 1);
    exponent = number.point - places;
    number.point = places;
    RoundAtPlace(number, parts.fraction_max);
    if (number.point > places) {
      exponent += number.point - places;
      number.point = places;
    }
  }
  std::string text = Compose(number, parts);
  text += parts.exponent;
  if (exponent < 0) {
    text += '-';
  } else if (parts.exponent_plus) {
    text += '+';
  }
  const std::string digits = std::to_string(std::abs(exponent));
  const auto wanted = static_cast<std::size_t>(parts.exponent_min);
  if (digits.size() < wanted) text.append(wanted - digits.size(), '0');
  return text + digits;
}

struct Sections {
  std::string_view positive;
  std::optional<std::string_view> negative;
  std::optional<std::string_view> zero;
};

Sections SectionsOf(std::string_view picture) {
  const auto first = picture.find(';');
  Sections sections{picture.substr(0, first), {}, {}};
  if (first == std::string_view::npos) return sections;
  const std::string_view rest = picture.substr(first + 1);
  const auto second = rest.find(';');
  sections.negative = rest.substr(0, second);
  if (second != std::string_view::npos) sections.zero = rest.substr(second + 1);
  return sections;
}

std::string SectionText(double value, const Sections& sections) {
  const bool negative = value < 0;
  const std::string_view section = negative ? *sections.negative : sections.positive;
  const std::string text = Picture(std::fabs(value), section);
  if (text != Picture(0, section)) return text;
  return Picture(0, sections.zero.value_or(sections.positive));
}

}  // namespace

std::string Picture(double value, std::string_view picture) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value < 0 ? "-Inf" : "Inf";
  if (const Sections sections = SectionsOf(picture); sections.negative) {
    return SectionText(value, sections);
  }
  const Parts parts = PartsOf(picture);
  Digits number = DigitsOf(std::fabs(value));
  std::string text;
  bool zero = number.digits.empty();
  if (parts.exponent != 0) {
    text = ComposeExponent(number, parts);
  } else {
    RoundAtPlace(number, parts.fraction_max);
    zero = AllZeros(number.digits);
    if (zero) number = {};
    text = Compose(number, parts);
  }
  const bool negative = value < 0 && !zero;
  return (negative ? "-" : "") + parts.prefix + text + parts.suffix;
}

std::string PictureRight(double value, std::string_view picture, int width) {
  return PadLeft(Picture(value, picture), width);
}

std::string PlainNumber(double value) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value < 0 ? "-Inf" : "Inf";
  if (value == 0) return "0";
  std::array<char, 40> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                 std::chars_format::general, kSignificantDigits);
  std::string result(text.data(), end.ptr);
  const auto exponent_at = result.find('e');
  if (exponent_at == std::string::npos) return result;
  result[exponent_at] = 'E';
  const auto digits_at = exponent_at + 2;
  result.erase(digits_at, result.find_first_not_of('0', digits_at) - digits_at);
  return result;
}

std::string DecimalNumber(double value) {
  if (!std::isfinite(value)) return PlainNumber(value);
  const Digits number = DigitsOf(std::fabs(value));
  Parts parts;
  parts.integer_min = 1;
  parts.fraction_max = std::max(static_cast<int>(number.digits.size()) - number.point, 0);
  const std::string fraction = FractionText(number, parts);
  return (value < 0 ? "-" : "") + IntegerText(number, parts) +
         (fraction.empty() ? "" : "." + fraction);
}

std::optional<double> ParseNumber(std::string_view text) {
  text = Trim(text);
  if (!text.empty() && text.front() == '+') {
    text.remove_prefix(1);
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) return std::nullopt;
  }
  if (text.empty() || text.size() > 400) return std::nullopt;
  const bool plain = std::all_of(text.begin(), text.end(), [](char c) {
    return (c >= '0' && c <= '9') || c == '.' || c == '-' || c == '+' || c == 'e' || c == 'E' ||
           c == 'd' || c == 'D';
  });
  if (!plain) return std::nullopt;
  std::array<char, 401> copy;
  std::copy(text.begin(), text.end(), copy.begin());
  char* const last = copy.data() + text.size();
  std::replace_if(
      copy.data(), last, [](char c) { return c == 'd' || c == 'D'; }, 'e');
  double value = 0;
  const auto [end, error] = std::from_chars(copy.data(), last, value);
  if (end != last) return std::nullopt;
  if (error == std::errc::result_out_of_range) {
    // from_chars says the same of too large and too small; a tiny number is 0, a huge one is none.
    if (std::find(copy.data(), last, 'e') == last) return std::nullopt;
    const std::string_view digits(copy.data(), static_cast<std::size_t>(last - copy.data()));
    return digits.find("e-") != std::string_view::npos ? std::optional(0.0) : std::nullopt;
  }
  if (error != std::errc()) return std::nullopt;
  return value;
}

std::optional<double> ParseByPicture(std::string_view text, std::string_view picture) {
  text = Trim(text);
  const Sections sections = SectionsOf(picture);
  if (sections.zero && text == Picture(0, *sections.zero)) return 0.0;
  if (!sections.negative) return ParseNumber(text);
  const Parts parts = PartsOf(*sections.negative);
  const std::size_t around = parts.prefix.size() + parts.suffix.size();
  const bool negative = around > 0 && text.size() > around && text.starts_with(parts.prefix) &&
                        text.ends_with(parts.suffix);
  if (!negative) return ParseNumber(text);
  const auto magnitude = ParseNumber(text.substr(parts.prefix.size(), text.size() - around));
  if (!magnitude || *magnitude < 0) return std::nullopt;
  return 0 - *magnitude;
}

double NumberOf(std::string_view text) {
  const auto value = ParseNumber(text);
  if (!value) throw Fault(FaultCode::NotANumber);
  return *value;
}

std::int16_t Int16Of(std::string_view text) {
  return RoundToInt16(NumberOf(text));
}
std::int32_t Int32Of(std::string_view text) {
  return RoundToInt32(NumberOf(text));
}

std::string_view Trim(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string LowerAscii(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

std::string PadRight(std::string_view text, int width) {
  std::string padded(text);
  if (static_cast<int>(padded.size()) < width) padded.resize(static_cast<std::size_t>(width), ' ');
  return padded;
}

std::string PadLeft(std::string_view text, int width) {
  const int missing = width - static_cast<int>(text.size());
  return std::string(static_cast<std::size_t>(std::max(missing, 0)), ' ') + std::string(text);
}

}  // namespace dorvane
