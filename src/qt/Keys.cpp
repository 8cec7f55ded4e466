#include "qt/Keys.h"

#include "program/Cursor.h"
#include "program/View.h"

namespace dorvane {
namespace {

void One(Program& program, const char* step) {
  spnCursor_SpinUpDown(program, step);
}
void ToggleLog(Program& program) {
  SetLogScale(program, program.view.LogScale == kFalse);
}

const KeyRow kKeys[] = {
    {Qt::Key_Left, Qt::NoModifier, "Left", "Cursor one channel to the left",
     [](Program& program) { One(program, "-1"); }},
    {Qt::Key_Right, Qt::NoModifier, "Right", "Cursor one channel to the right",
     [](Program& program) { One(program, "+1"); }},
    {Qt::Key_Left, Qt::ShiftModifier, "Shift+Left", "Cursor 20 channels to the left",
     [](Program& program) { One(program, "-20"); }},
    {Qt::Key_Right, Qt::ShiftModifier, "Shift+Right", "Cursor 20 channels to the right",
     [](Program& program) { One(program, "+20"); }},
    {Qt::Key_Up, Qt::NoModifier, "Up", "Taller scale", mnuTaller},
    {Qt::Key_Down, Qt::NoModifier, "Down", "Shorter scale", mnuShoter},
    {Qt::Key_Plus, Qt::KeypadModifier, "Key pad +", "Wider: half of the range", cmdWider},
    {Qt::Key_Minus, Qt::KeypadModifier, "Key pad -", "Narrower: twice the range", cmdNarrower},
    {Qt::Key_Period, Qt::KeypadModifier, "Key pad .", "Log scale on and off", ToggleLog},
    {Qt::Key_Comma, Qt::KeypadModifier, "Key pad ,", "Log scale on and off", ToggleLog},
};

bool IsArrow(int key) {
  return key >= Qt::Key_Left && key <= Qt::Key_Down;
}

}  // namespace

std::span<const KeyRow> KeyTable() {
  return kKeys;
}

const KeyRow* FindKey(const QKeyEvent& event) {
  // Some desktops count the arrows among the key pad.
  const Qt::KeyboardModifiers modifiers =
      IsArrow(event.key()) ? event.modifiers() & ~Qt::KeypadModifier : event.modifiers();
  for (const KeyRow& row : kKeys) {
    if (row.key == event.key() && row.modifiers == modifiers) return &row;
  }
  return nullptr;
}

}  // namespace dorvane
