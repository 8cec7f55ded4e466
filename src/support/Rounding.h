// Rounding to integers and conversions that may not lose anything.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>
#include <utility>

#include "support/Fault.h"

namespace dorvane {

// Integer to integer without loss; throws Fault(Overflow) when the value has no place in To.
template <typename To, typename From>
constexpr To Narrow(From value) {
  static_assert(std::is_integral_v<To> && std::is_integral_v<From>);
  if (!std::in_range<To>(value)) throw Fault(FaultCode::Overflow);
  return static_cast<To>(value);
}

constexpr std::int16_t ToInt16(std::int64_t value) {
  return Narrow<std::int16_t>(value);
}

// The nearest integer, halves to the even neighbour. NaN and infinities come back as they are.
inline double RoundHalfEven(double value) {
  return std::nearbyint(value);
}

// RoundHalfEven into an integer type; throws Fault(Overflow) for NaN and for what has no place
// there.
template <typename To>
To RoundTo(double value) {
  static_assert(std::is_integral_v<To> && sizeof(To) <= 4);
  const double rounded = RoundHalfEven(value);
  if (!(rounded >= static_cast<double>(std::numeric_limits<To>::min()) &&
        rounded <= static_cast<double>(std::numeric_limits<To>::max()))) {
    throw Fault(FaultCode::Overflow);
  }
  return static_cast<To>(rounded);
}

inline std::int16_t RoundToInt16(double value) {
  return RoundTo<std::int16_t>(value);
}
inline std::int32_t RoundToInt32(double value) {
  return RoundTo<std::int32_t>(value);
}

// Truth of a 16-bit field: -1 true, 0 false.
constexpr std::int16_t kTrue = -1;
constexpr std::int16_t kFalse = 0;

// An arithmetic result that must be finite: throws Fault(Overflow) for infinities,
// Fault(BadArgument) for NaN.
inline double Finite(double value) {
  if (std::isnan(value)) throw Fault(FaultCode::BadArgument);
  if (std::isinf(value)) throw Fault(FaultCode::Overflow);
  return value;
}

// numerator / denominator; throws Fault(DivisionByZero) for a zero denominator.
inline double Divide(double numerator, double denominator) {
  if (denominator == 0.0) throw Fault(FaultCode::DivisionByZero);
  return Finite(numerator / denominator);
}

}  // namespace dorvane
