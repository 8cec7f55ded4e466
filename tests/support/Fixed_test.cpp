#include "support/Fixed.h"

#include <gtest/gtest.h>

namespace dorvane {
namespace {

template <typename Action>
int FaultNumberOf(Action&& action) {
  try {
    action();
  } catch (const Fault& fault) {
    return fault.Number();
  }
  return 0;
}

TEST(Fixed, StartsWithZeros) {
  const Fixed<int, 0, 2> table;
  EXPECT_EQ(table[0] + table[1] + table[2], 0);
}

TEST(Fixed, BothBoundsAreElements) {
  Fixed<int, -2, 3> table;
  table[-2] = 7;
  table[3] = 8;
  EXPECT_EQ(table.All().front(), 7);
  EXPECT_EQ(table.All().back(), 8);
  EXPECT_EQ(table.size(), 6u);
}

TEST(Fixed, SubscriptOutsideTheBoundsIsFault9) {
  Fixed<int, 1, 3> table;
  EXPECT_EQ(FaultNumberOf([&] { table[0] = 1; }), 9);
  EXPECT_EQ(FaultNumberOf([&] { table[4] = 1; }), 9);
  EXPECT_EQ(FaultNumberOf([&] { table[-1] = 1; }), 9);
  EXPECT_EQ(table, (Fixed<int, 1, 3>()));
}

TEST(Fixed, TablesOfTablesCheckBothSubscripts) {
  Fixed<Fixed<int, 1, 2>, 0, 1> table;
  table[1][2] = 5;
  EXPECT_EQ(table[1][2], 5);
  EXPECT_EQ(FaultNumberOf([&] { table[2][1] = 1; }), 9);
  EXPECT_EQ(FaultNumberOf([&] { table[1][0] = 1; }), 9);
}

TEST(Fixed, FillSetsEveryElement) {
  Fixed<int, 0, 2> table;
  table.fill(4);
  for (const int item : table) EXPECT_EQ(item, 4);
}

}  // namespace
}  // namespace dorvane
