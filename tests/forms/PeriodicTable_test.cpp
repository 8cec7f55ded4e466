#include "forms/PeriodicTable.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <string>
#include <utility>

namespace dorvane {
namespace {

// From the periodic table of IUPAC in its 18-column form.
TEST(PeriodicTable, ElementsStandInTheirPeriodAndGroup) {
  EXPECT_EQ(PlaceOf(1), (TablePlace{1, 1}));    // H
  EXPECT_EQ(PlaceOf(2), (TablePlace{1, 18}));   // He
  EXPECT_EQ(PlaceOf(6), (TablePlace{2, 14}));   // C
  EXPECT_EQ(PlaceOf(12), (TablePlace{3, 2}));   // Mg
  EXPECT_EQ(PlaceOf(26), (TablePlace{4, 8}));   // Fe
  EXPECT_EQ(PlaceOf(47), (TablePlace{5, 11}));  // Ag
  EXPECT_EQ(PlaceOf(79), (TablePlace{6, 11}));  // Au
  EXPECT_EQ(PlaceOf(82), (TablePlace{6, 14}));  // Pb
  EXPECT_EQ(PlaceOf(88), (TablePlace{7, 2}));   // Ra
}

TEST(PeriodicTable, LanthanidesAndActinidesStandBelow) {
  EXPECT_EQ(PlaceOf(57), (TablePlace{9, 3}));     // La
  EXPECT_EQ(PlaceOf(71), (TablePlace{9, 17}));    // Lu
  EXPECT_EQ(PlaceOf(72), (TablePlace{6, 4}));     // Hf
  EXPECT_EQ(PlaceOf(89), (TablePlace{10, 3}));    // Ac
  EXPECT_EQ(PlaceOf(103), (TablePlace{10, 17}));  // Lr
}

TEST(PeriodicTable, EveryElementHasAPlaceAndASymbolOfItsOwn) {
  std::set<std::string> symbols;
  for (int num = 1; num <= 103; ++num) {
    EXPECT_EQ(NumAt(PlaceOf(num)), num);
    EXPECT_TRUE(symbols.insert(std::string(SymbolOf(num))).second) << num;
  }
}

TEST(PeriodicTable, EmptyPlacesHoldNothing) {
  for (const TablePlace place :
       {TablePlace{1, 2}, {2, 3}, {6, 3}, {7, 4}, {8, 5}, {9, 18}, {0, 0}}) {
    EXPECT_EQ(NumAt(place), 0) << place.row << " " << place.column;
  }
}

TEST(PeriodicTable, NeighboursAreFoundOverEmptyPlaces) {
  EXPECT_EQ(NeighbourOf(1, 0, 1), 2);     // H, He
  EXPECT_EQ(NeighbourOf(5, 0, -1), 4);    // B, Be
  EXPECT_EQ(NeighbourOf(26, 1, 0), 44);   // Fe, Ru
  EXPECT_EQ(NeighbourOf(39, 1, 0), 57);   // Y, La
  EXPECT_EQ(NeighbourOf(58, -1, 0), 72);  // Ce, Hf
}

TEST(PeriodicTable, AtTheBorderAnElementIsItsOwnNeighbour) {
  EXPECT_EQ(NeighbourOf(1, -1, 0), 1);
  EXPECT_EQ(NeighbourOf(2, 0, 1), 2);
  EXPECT_EQ(NeighbourOf(103, 1, 0), 103);
  EXPECT_EQ(NeighbourOf(87, 0, -1), 87);
}

TEST(PeriodicTable, OtherNumbersAreRefused) {
  for (const int num : {0, 104, -1}) {
    EXPECT_THROW(SymbolOf(num), std::out_of_range);
    EXPECT_THROW(PlaceOf(num), std::out_of_range);
  }
}

}  // namespace
}  // namespace dorvane
