#include "support/Rounding.h"

#include <gtest/gtest.h>

namespace dorvane {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

template <typename Action>
FaultCode FaultOf(Action&& action) {
  try {
    action();
  } catch (const Fault& fault) {
    return fault.Code();
  }
  ADD_FAILURE() << "no fault";
  return FaultCode::FileFailed;
}

TEST(Rounding, HalvesGoToTheEvenNeighbour) {
  EXPECT_EQ(RoundToInt16(0.5), 0);
  EXPECT_EQ(RoundToInt16(1.5), 2);
  EXPECT_EQ(RoundToInt16(2.5), 2);
  EXPECT_EQ(RoundToInt16(-0.5), 0);
  EXPECT_EQ(RoundToInt16(-1.5), -2);
  EXPECT_EQ(RoundToInt16(-2.5), -2);
  EXPECT_EQ(RoundToInt16(2.4999), 2);
  EXPECT_EQ(RoundToInt16(2.5001), 3);
}

TEST(Rounding, Int16EndsAt32767) {
  EXPECT_EQ(RoundToInt16(32767.4), 32767);
  EXPECT_EQ(RoundToInt16(-32768.5), -32768);
  EXPECT_EQ(FaultOf([] { RoundToInt16(32767.5); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([] { RoundToInt16(-32768.6); }), FaultCode::Overflow);
}

TEST(Rounding, Int32EndsAt2147483647) {
  EXPECT_EQ(RoundToInt32(2147483647.0), 2147483647);
  EXPECT_EQ(RoundToInt32(-2147483648.0), -2147483647 - 1);
  EXPECT_EQ(FaultOf([] { RoundToInt32(2147483648.0); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([] { RoundToInt32(-2147483649.0); }), FaultCode::Overflow);
}

TEST(Rounding, NanAndInfinityHaveNoInteger) {
  EXPECT_EQ(FaultOf([] { RoundToInt32(kNan); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([] { RoundToInt16(kInfinity); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([] { RoundToInt16(-kInfinity); }), FaultCode::Overflow);
}

TEST(Rounding, NarrowKeepsOrFaults) {
  EXPECT_EQ(ToInt16(-32768), -32768);
  EXPECT_EQ(FaultOf([] { ToInt16(32768); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([] { Narrow<std::int16_t>(std::size_t{40000}); }), FaultCode::Overflow);
}

TEST(Rounding, DivisionByZeroIsAFaultNotAnInfinity) {
  EXPECT_EQ(Divide(7, 2), 3.5);
  EXPECT_EQ(FaultOf([] { Divide(1, 0.0); }), FaultCode::DivisionByZero);
  EXPECT_EQ(FaultOf([] { Divide(0, -0.0); }), FaultCode::DivisionByZero);
  EXPECT_EQ(FaultOf([] { Divide(1e300, 1e-300); }), FaultCode::Overflow);
}

TEST(Rounding, FiniteRefusesInfinityAndNan) {
  EXPECT_EQ(Finite(1.5), 1.5);
  EXPECT_EQ(FaultOf([] { Finite(kInfinity); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([] { Finite(kNan); }), FaultCode::BadArgument);
}

}  // namespace
}  // namespace dorvane
