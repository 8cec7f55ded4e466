// Numbers as text: the pictures that forms and files print with, and the one parser, both
// independent of the locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dorvane {

// `value` by a number picture: "0" a digit that is always shown, "#" a digit shown when
// significant, "," thousands,
// "." the decimal point, "E+000" / "e+000" an exponent of at least that many digits with its sign.
// Other characters in front of or behind the digits are copied. Every digit before the point is
// shown, however short the picture.
//
// The value is taken to its 15 significant decimal digits, then rounded half away from zero at the
// picture's last place. A value that rounds to zero shows no sign; "####" of 0 is an empty text. A
// point in the picture is printed even where no digit follows. Infinities and NaN print as "Inf",
// "-Inf" and "NaN".
//
// A picture may have sections with ";" between them, as "#0.000;(#0.000);Nothing": for positive
// values, for negative ones, which show no other sign, and for what rounds to zero.
std::string Picture(double value, std::string_view picture);

// Picture, right-aligned with blanks to `width` characters; longer texts are not cut.
std::string PictureRight(double value, std::string_view picture, int width);

// A plain number with up to 15 significant digits and no zeros behind the last one, as "1.5", "-3"
// or "100"; with an exponent, as "2.5E-7" or "1E+15", below 0.0001 and from 1E+15 on. "Inf", "-Inf"
// and "NaN" as in Picture.
std::string PlainNumber(double value);
// The same without an exponent, as "0.00000025" or "1000000000000000".
std::string DecimalNumber(double value);

// The whole text, blanks around it trimmed, as a decimal number such as "12", "-1.5", "+2.E3",
// "1D-3" or ".5". Nothing for an empty text, hexadecimal, infinities, NaN, or anything left over;
// nothing when it overflows.
std::optional<double> ParseNumber(std::string_view text);

// ParseNumber, and the texts that a picture with sections shows for negative values and for zero,
// as "(1.5)" and "Nothing".
std::optional<double> ParseByPicture(std::string_view text, std::string_view picture);

// ParseNumber that throws Fault(NotANumber) instead of answering nothing.
double NumberOf(std::string_view text);

// NumberOf rounded half to even into the width; throws Fault(Overflow) when it has no place there.
std::int16_t Int16Of(std::string_view text);
std::int32_t Int32Of(std::string_view text);

inline bool IsNumeric(std::string_view text) {
  return ParseNumber(text).has_value();
}

// Text without the blanks and tabs (and, for lines, carriage returns) at both ends.
std::string_view Trim(std::string_view text);

// ASCII lower case; other bytes stay.
std::string LowerAscii(std::string_view text);

// Left-aligned, right-aligned: filled with blanks to `width` bytes; longer texts stay whole.
std::string PadRight(std::string_view text, int width);
std::string PadLeft(std::string_view text, int width);

}  // namespace dorvane
