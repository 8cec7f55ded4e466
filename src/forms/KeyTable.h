// The keys of the main form: one row from key and modifier to operation.
#pragma once

#include <span>
#include <string_view>

#include "forms/Control.h"
#include "program/Program.h"

namespace dorvane {

enum class FormKey { Left, Right, Up, Down, PadPlus, PadMinus, PadDecimal };
enum class KeyModifier { None, Shift, Alt };

struct KeyRow {
  FormKey key;
  KeyModifier modifier;
  std::string_view shown;  // in the list of keys
  std::string_view what;
  void (*run)(Program&);
};

std::span<const KeyRow> KeyTable();
// The row of a key; nullptr where none has it.
const KeyRow* FindKey(FormKey key, KeyModifier modifier);

// Whether the focused control needs a key itself: arrows without Alt in boxes, lists, grids, menus,
// sliders and tabs; plus, minus and decimal in boxes. False without a focus.
bool UsesKeyItself(Control* focused, FormKey key, KeyModifier modifier);

}  // namespace dorvane
