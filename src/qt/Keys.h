// The keys of the main window that are no shortcut of an action.
#pragma once

#include <QKeyEvent>
#include <span>

#include "qt/Session.h"

namespace dorvane {

struct KeyRow {
  int key;
  Qt::KeyboardModifiers modifiers;
  const char* shown;  // in the list of keys
  const char* what;
  void (*run)(Program&);
};

std::span<const KeyRow> KeyTable();
// The row of a key press; nullptr where none fits.
const KeyRow* FindKey(const QKeyEvent& event);

}  // namespace dorvane
