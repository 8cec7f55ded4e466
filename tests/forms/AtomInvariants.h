// What holds of the periodic table after every action of a user.
#pragma once

#include <set>
#include <string>

#include "forms/FakeElementStore.h"
#include "forms/StoreInvariants.h"
#include "forms/frmAtom.h"

namespace dorvane {

inline void CheckAtomEdit(const frmAtom& form, int pressed, int num, Wrong& wrong) {
  Expect(pressed <= 1, "one element is edited at a time", wrong);
  for (int kind = 0; kind < kLineKinds; ++kind) {
    const ToggleButton& toggle = form.tglPkDisp[kind];
    Expect(toggle.Enabled() == (pressed == 1), "kinds are on for an element", wrong);
    const bool selected = pressed == 1 && form.AtomSel[kind][num] == kTrue;
    Expect(toggle.Pressed() == selected, "kinds show the selections", wrong);
  }
}

// Every mark of an element is one of its record.
inline void CheckElementMarks(const Program& program, const FakeElementStore& store, Wrong& wrong) {
  std::set<std::string> labels;
  for (const ElementRec& record : store.records) {
    for (const ElementRec::Line& line : record.Lines) {
      if (line.energy_kev) labels.insert(record.Symbol + " " + line.field);
    }
  }
  for (int view = 0; view < kWindows; ++view) {
    for (const MarkRec& mark : program.spect.NamedLines(view)) {
      const std::string text(TextOf(mark));
      Expect(store.IsOpen() && labels.contains(text), "a line that is no element's: " + text,
             wrong);
      Expect(mark.X >= 0 && mark.X < kMaxChannels, "a line within the channels: " + text, wrong);
    }
  }
}

inline void CheckAtom(const frmAtom& form, const Program& program, const FakeElementStore& store,
                      Wrong& wrong) {
  const bool edit = form.CurrentMode() == frmAtom::Mode::Edit;
  const bool mark = form.CurrentMode() == frmAtom::Mode::Mark;
  Expect(form.optEdit.Pressed() == edit && form.optMark.Pressed() == mark &&
             form.optTake.Pressed() == (!edit && !mark),
         "one mode is on", wrong);
  int pressed = 0;
  int last = 0;
  for (int num = kFirstElement; num <= kLastElement; ++num) {
    if (!form.tglAtom[num].Pressed()) continue;
    ++pressed;
    last = num;
  }
  if (edit) CheckAtomEdit(form, pressed, last, wrong);
  Expect(!form.element.Visible() || store.IsOpen(), "a record shows a table that is there", wrong);
  CheckElementMarks(program, store, wrong);
}

}  // namespace dorvane
