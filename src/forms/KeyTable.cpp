#include "forms/KeyTable.h"

#include <array>

#include "forms/ControlVisitor.h"
#include "program/Cursor.h"
#include "program/View.h"

namespace dorvane {
namespace {

void OneLeft(Program& program) {
  spnCursor_SpinUpDown(program, "-1");
}
void OneRight(Program& program) {
  spnCursor_SpinUpDown(program, "+1");
}
void TwentyLeft(Program& program) {
  spnCursor_SpinUpDown(program, "-20");
}
void TwentyRight(Program& program) {
  spnCursor_SpinUpDown(program, "+20");
}
void PreviousPeak(Program& program) {
  PeakJump(program, 0);
}
void NextPeak(Program& program) {
  PeakJump(program, 1);
}
void ToggleLog(Program& program) {
  SetLogScale(program, program.view.LogScale == kFalse);
}

using enum FormKey;
using enum KeyModifier;

constexpr std::array kKeys{
    KeyRow{Left, None, "Left", "Cursor one channel to the left", OneLeft},
    KeyRow{Right, None, "Right", "Cursor one channel to the right", OneRight},
    KeyRow{Left, Shift, "Shift+Left", "Cursor 20 channels to the left", TwentyLeft},
    KeyRow{Right, Shift, "Shift+Right", "Cursor 20 channels to the right", TwentyRight},
    KeyRow{Left, Alt, "Alt+Left", "Cursor to the previous peak", PreviousPeak},
    KeyRow{Right, Alt, "Alt+Right", "Cursor to the next peak", NextPeak},
    KeyRow{Up, None, "Up", "Taller scale", mnuTaller},
    KeyRow{Down, None, "Down", "Shorter scale", mnuShoter},
    KeyRow{PadPlus, None, "Key pad +", "Wider: half of the range", cmdWider},
    KeyRow{PadMinus, None, "Key pad -", "Narrower: twice the range", cmdNarrower},
    KeyRow{PadDecimal, None, "Key pad .", "Log scale on and off", ToggleLog},
};

enum class KeyUse { Nothing, UpAndDown, Arrows, ArrowsAndSigns };

// What each kind of control does with keys.
class KeyUseOf : public ControlVisitor {
 public:
  KeyUse use = KeyUse::Nothing;

  void Visit(Button&) override {}
  void Visit(CheckBox&) override {}
  void Visit(Frame&) override {}
  void Visit(Label&) override {}
  void Visit(PictureBox&) override {}
  void Visit(Timer&) override {}
  void Visit(ToolBar&) override {}
  void Visit(Splitter&) override { use = KeyUse::UpAndDown; }
  void Visit(UpDown&) override { use = KeyUse::UpAndDown; }
  void Visit(ColorPatch&) override { use = KeyUse::Arrows; }
  void Visit(ComboBox&) override { use = KeyUse::Arrows; }
  void Visit(Grid&) override { use = KeyUse::Arrows; }
  void Visit(ListBox&) override { use = KeyUse::Arrows; }
  void Visit(MenuItem&) override { use = KeyUse::Arrows; }
  void Visit(OptionGroup&) override { use = KeyUse::Arrows; }
  void Visit(ScrollBar&) override { use = KeyUse::Arrows; }
  void Visit(Slider&) override { use = KeyUse::Arrows; }
  void Visit(Tabs&) override { use = KeyUse::Arrows; }
  void Visit(ToggleButton&) override { use = KeyUse::Arrows; }
  void Visit(NumberBox&) override { use = KeyUse::ArrowsAndSigns; }
  void Visit(TextBox&) override { use = KeyUse::ArrowsAndSigns; }
};

}  // namespace

std::span<const KeyRow> KeyTable() {
  return kKeys;
}

const KeyRow* FindKey(FormKey key, KeyModifier modifier) {
  for (const KeyRow& row : kKeys) {
    if (row.key == key && row.modifier == modifier) return &row;
  }
  return nullptr;
}

bool UsesKeyItself(Control* focused, FormKey key, KeyModifier modifier) {
  if (focused == nullptr || modifier == Alt) return false;
  KeyUseOf kind;
  focused->Accept(kind);
  switch (key) {
    case Up:
    case Down:
      return kind.use != KeyUse::Nothing;
    case Left:
    case Right:
      return kind.use == KeyUse::Arrows || kind.use == KeyUse::ArrowsAndSigns;
    default:
      return kind.use == KeyUse::ArrowsAndSigns;
  }
}

}  // namespace dorvane
