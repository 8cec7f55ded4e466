// The table of selections of the periodic table: which lines of which element may be marked.
#pragma once

#include <cstdint>

#include "support/ElementStore.h"
#include "support/Fixed.h"
#include "support/SettingsStore.h"

namespace dorvane {

// Row is the line kind, column the atomic number (0 is no element's); -1 selected, 0 not.
using AtomSelTable = Fixed<Fixed<std::int16_t, 0, kLastElement>, 0, kLineKinds - 1>;

// Every line of every element, but for what is kept between two runs. Kept texts that are none of
// KeepAtomSel's are passed over.
AtomSelTable StoredAtomSel(const SettingsStore& settings);
// Keeps the elements that have a line taken off, one text each: atomic number, a blank, and a 1 or
// a 0 for each line kind.
void KeepAtomSel(SettingsStore& settings, const AtomSelTable& selections);

}  // namespace dorvane
