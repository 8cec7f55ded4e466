#include "forms/PeriodicTable.h"

#include <array>
#include <cstddef>

namespace dorvane {
namespace {

constexpr std::array<std::string_view, 103> kSymbols{
    "H",  "He", "Li", "Be", "B",  "C",  "N",  "O",  "F",  "Ne", "Na", "Mg", "Al", "Si", "P",
    "S",  "Cl", "Ar", "K",  "Ca", "Sc", "Ti", "V",  "Cr", "Mn", "Fe", "Co", "Ni", "Cu", "Zn",
    "Ga", "Ge", "As", "Se", "Br", "Kr", "Rb", "Sr", "Y",  "Zr", "Nb", "Mo", "Tc", "Ru", "Rh",
    "Pd", "Ag", "Cd", "In", "Sn", "Sb", "Te", "I",  "Xe", "Cs", "Ba", "La", "Ce", "Pr", "Nd",
    "Pm", "Sm", "Eu", "Gd", "Tb", "Dy", "Ho", "Er", "Tm", "Yb", "Lu", "Hf", "Ta", "W",  "Re",
    "Os", "Ir", "Pt", "Au", "Hg", "Tl", "Pb", "Bi", "Po", "At", "Rn", "Fr", "Ra", "Ac", "Th",
    "Pa", "U",  "Np", "Pu", "Am", "Cm", "Bk", "Cf", "Es", "Fm", "Md", "No", "Lr"};

// Elements that follow one another along a row.
struct Stretch {
  int first;
  int last;
  TablePlace place;  // of the first
};

constexpr std::array kStretches{
    Stretch{1, 1, {1, 1}},    Stretch{2, 2, {1, 18}},  Stretch{3, 4, {2, 1}},
    Stretch{5, 10, {2, 13}},  Stretch{11, 12, {3, 1}}, Stretch{13, 18, {3, 13}},
    Stretch{19, 36, {4, 1}},  Stretch{37, 54, {5, 1}}, Stretch{55, 56, {6, 1}},
    Stretch{57, 71, {9, 3}},  Stretch{72, 86, {6, 4}}, Stretch{87, 88, {7, 1}},
    Stretch{89, 103, {10, 3}}};

}  // namespace

std::string_view SymbolOf(int num) {
  return kSymbols.at(static_cast<std::size_t>(num - 1));
}

TablePlace PlaceOf(int num) {
  std::size_t at = 0;
  while (num < kStretches.at(at).first || num > kStretches[at].last) ++at;
  return {kStretches[at].place.row, kStretches[at].place.column + num - kStretches[at].first};
}

int NumAt(TablePlace place) {
  for (const Stretch& stretch : kStretches) {
    const int num = stretch.first + place.column - stretch.place.column;
    if (place.row == stretch.place.row && num >= stretch.first && num <= stretch.last) return num;
  }
  return 0;
}

int NeighbourOf(int num, int down, int right) {
  TablePlace place = PlaceOf(num);
  for (;;) {
    place = {place.row + down, place.column + right};
    if (place.row < 1 || place.row > kTableRows) return num;
    if (place.column < 1 || place.column > kTableColumns) return num;
    if (const int next = NumAt(place)) return next;
  }
}

}  // namespace dorvane
