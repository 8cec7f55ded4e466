#include "processing/GraphArithmetic.h"

#include <gmock/gmock.h>

#include <functional>
#include <limits>
#include <vector>

#include "support/Rounding.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();

ChannelBlock Block(const std::vector<std::int32_t>& counts) {
  ChannelBlock block;
  block.Count = ToInt16(static_cast<std::int64_t>(counts.size()));
  std::copy(counts.begin(), counts.end(), block.Counts.begin());
  return block;
}

std::vector<std::int32_t> Counts(const ChannelBlock& block) {
  const auto used = block.Used();
  return {used.begin(), used.end()};
}

std::vector<std::int32_t> WithConst(int op, const std::vector<std::int32_t>& counts, double n) {
  ChannelBlock result;
  CalcConst(op, Block(counts), n, result);
  return Counts(result);
}

std::vector<std::int32_t> OfGraphs(int op, const std::vector<std::int32_t>& a,
                                   const std::vector<std::int32_t>& b) {
  ChannelBlock result;
  CalcGraphs(op, Block(a), Block(b), result);
  return Counts(result);
}

FaultCode FaultOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const Fault& fault) {
    return fault.Code();
  }
  return FaultCode{};
}

// 1.5, 2.5 and 3.5 by hand.
TEST(CalcConst, HalvesAreRoundedToTheEvenNeighbour) {
  EXPECT_THAT(WithConst(kAdd, {1, 2, 3}, 0.5), ElementsAre(2, 2, 4));
  EXPECT_THAT(WithConst(kSubtract, {1, 2, 3}, 0.5), ElementsAre(0, 2, 2));
  EXPECT_THAT(WithConst(kMultiply, {1, 3, 5}, 0.5), ElementsAre(0, 2, 2));
  EXPECT_THAT(WithConst(kDivide, {1, 3, 5}, 2), ElementsAre(0, 2, 2));
}

TEST(CalcConst, FourOperators) {
  EXPECT_THAT(WithConst(kAdd, {7, -7}, 2.25), ElementsAre(9, -5));
  EXPECT_THAT(WithConst(kSubtract, {7, -7}, 2.25), ElementsAre(5, -9));
  EXPECT_THAT(WithConst(kMultiply, {7, -7}, 2.25), ElementsAre(16, -16));
  EXPECT_THAT(WithConst(kDivide, {7, -7}, 2.25), ElementsAre(3, -3));
}

TEST(CalcConst, AnyOtherOperatorGivesZeros) {
  for (const int op : {-1, 4, 99}) EXPECT_THAT(WithConst(op, {7, 8}, 2), ElementsAre(0, 0));
}

TEST(CalcConst, DivisionByZeroIsZeroAsMeant) {
  EXPECT_THAT(WithConst(kDivide, {5, 0, -5}, 0), ElementsAre(0, 0, 0));
  EXPECT_THAT(WithConst(kDivide, {5, 0, -5}, -0.0), ElementsAre(0, 0, 0));
}

TEST(CalcConst, NegativeResultsStayNegative) {
  EXPECT_THAT(WithConst(kSubtract, {3, 10}, 5), ElementsAre(-2, 5));
}

TEST(CalcConst, ResultsUpToThe32BitsAreHeld) {
  EXPECT_THAT(WithConst(kAdd, {kMost - 1}, 1.25), ElementsAre(kMost));
  EXPECT_THAT(WithConst(kSubtract, {kLeast + 1}, 1.25), ElementsAre(kLeast));
}

TEST(CalcConst, ResultsBeyond32BitsOverflowWithEveryOperator) {
  ChannelBlock result;
  const ChannelBlock block = Block({kMost});
  EXPECT_EQ(FaultOf([&] { CalcConst(kAdd, block, 1, result); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([&] { CalcConst(kSubtract, block, -1, result); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([&] { CalcConst(kMultiply, block, 2, result); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([&] { CalcConst(kDivide, block, 0.5, result); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([&] { CalcConst(kMultiply, block, 1e308, result); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([&] { CalcConst(kDivide, block, 1e-308, result); }), FaultCode::Overflow);
}

TEST(CalcConst, TheDestinationTakesTheCountAndKeepsTheChannelsBehindIt) {
  ChannelBlock result = Block({9, 9, 9, 9});
  CalcConst(kAdd, Block({1, 2}), 1, result);
  EXPECT_THAT(Counts(result), ElementsAre(2, 3));
  EXPECT_EQ(result.Counts[2], 9);
  EXPECT_EQ(result.Counts[3], 9);
}

TEST(CalcConst, ASourceIsWorkedOnInItsOwnPlace) {
  ChannelBlock block = Block({1, 2, 3});
  CalcConst(kMultiply, block, 10, block);
  EXPECT_THAT(Counts(block), ElementsAre(10, 20, 30));
}

TEST(CalcGraphs, FourOperators) {
  EXPECT_THAT(OfGraphs(kAdd, {7, -7}, {2, 3}), ElementsAre(9, -4));
  EXPECT_THAT(OfGraphs(kSubtract, {7, -7}, {2, 3}), ElementsAre(5, -10));
  EXPECT_THAT(OfGraphs(kMultiply, {7, -7}, {2, 3}), ElementsAre(14, -21));
  EXPECT_THAT(OfGraphs(kDivide, {8, -8}, {3, 3}), ElementsAre(3, -3));
}

TEST(CalcGraphs, QuotientsAreRoundedHalfToEven) {
  EXPECT_THAT(OfGraphs(kDivide, {1, 3, 5, -1, -3}, {2, 2, 2, 2, 2}), ElementsAre(0, 2, 2, 0, -2));
}

TEST(CalcGraphs, AnyOtherOperatorGivesZeros) {
  for (const int op : {-1, 4}) EXPECT_THAT(OfGraphs(op, {7, 8}, {2, 3}), ElementsAre(0, 0));
}

TEST(CalcGraphs, ChannelsWithoutCountsAsDivisorsGiveZeroAsMeant) {
  EXPECT_THAT(OfGraphs(kDivide, {5, 6, 0}, {0, 2, 0}), ElementsAre(0, 3, 0));
}

TEST(CalcGraphs, ResultsUpToThe32BitsAreHeld) {
  EXPECT_THAT(OfGraphs(kAdd, {kMost - 1}, {1}), ElementsAre(kMost));
  EXPECT_THAT(OfGraphs(kSubtract, {kLeast + 1}, {1}), ElementsAre(kLeast));
  EXPECT_THAT(OfGraphs(kMultiply, {65536}, {-32768}), ElementsAre(kLeast));
}

TEST(CalcGraphs, ResultsBeyond32BitsOverflowWithEveryOperator) {
  EXPECT_EQ(FaultOf([] { OfGraphs(kAdd, {kMost}, {1}); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([] { OfGraphs(kSubtract, {kLeast}, {1}); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([] { OfGraphs(kMultiply, {65536}, {32768}); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([] { OfGraphs(kDivide, {kLeast}, {-1}); }), FaultCode::Overflow);
}

TEST(CalcGraphs, TheCountIsThatOfTheFirstOperand) {
  EXPECT_THAT(OfGraphs(kAdd, {1, 2}, {10, 20, 30}), ElementsAre(11, 22));
}

TEST(CalcGraphs, ChannelsOfTheSecondBehindItsCountTakePartAsMeant) {
  ChannelBlock shorter = Block({10});
  shorter.Counts[1] = 70;
  ChannelBlock result;
  CalcGraphs(kAdd, Block({1, 2, 3}), shorter, result);
  EXPECT_THAT(Counts(result), ElementsAre(11, 72, 3));
}

TEST(CalcGraphs, AllChannelsAreWorkedOn) {
  const std::vector<std::int32_t> whole(kMaxChannels, 3);
  EXPECT_THAT(OfGraphs(kMultiply, whole, whole),
              ElementsAreArray(std::vector<std::int32_t>(kMaxChannels, 9)));
}

}  // namespace
}  // namespace dorvane
