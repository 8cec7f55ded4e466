// The periodic table: symbol and place of the elements 1 to 103.
#pragma once

#include <string_view>

namespace dorvane {

constexpr int kTableRows = 10;  // seven periods, a gap, lanthanides, actinides
constexpr int kTableColumns = 18;

// Both count from 1.
struct TablePlace {
  int row = 0;
  int column = 0;

  friend bool operator==(const TablePlace&, const TablePlace&) = default;
};

// Throws std::out_of_range for a number that is none of 1..103; so does PlaceOf.
std::string_view SymbolOf(int num);
TablePlace PlaceOf(int num);
// The element at a place; 0 where there is none.
int NumAt(TablePlace place);
// The next element in a direction (-1, 0 or 1 along rows and columns, not both 0) over empty
// places; the element itself where none follows.
int NeighbourOf(int num, int down, int right);

}  // namespace dorvane
