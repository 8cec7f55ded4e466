// Arithmetic on 32-bit floats that faults where IEEE would quietly go on with an infinity or a NaN.
#pragma once

#include <cmath>

#include "support/Fault.h"

namespace dorvane {

inline float Finite32(float value) {
  if (std::isnan(value)) throw Fault(FaultCode::BadArgument);
  if (std::isinf(value)) throw Fault(FaultCode::Overflow);
  return value;
}

inline float Divide32(float numerator, float denominator) {
  if (denominator == 0.0f) throw Fault(FaultCode::DivisionByZero);
  return Finite32(numerator / denominator);
}

inline float Root32(float value) {
  if (value < 0.0f) throw Fault(FaultCode::BadArgument);
  return Finite32(std::sqrt(value));
}

}  // namespace dorvane
