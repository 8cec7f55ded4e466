// The main form over a program with scripted ports.
#pragma once

#include "forms/FormFixture.h"
#include "forms/frmDorvane.h"
#include "program/OpenSave.h"
#include "program/ProgramFixture.h"
#include "support/MemorySettings.h"

namespace dorvane {

struct RecordingLauncher : Launcher {
  bool works = true;
  std::vector<std::string> paths;
  bool EditText(const std::string& path) override {
    paths.push_back(path);
    return works;
  }
  bool Start(const std::string& path) override { return EditText(path); }
};

class MainFormTest : public ProgramTest {
 protected:
  MainFormTest() { views.Add(form); }

  // A spectrum of 4096 channels shown in the next row and worked on in window 0.
  std::int16_t ShowSpectrum(const std::string& title = "a.npd", std::int32_t count = 5) {
    const auto data_no = Show(std::vector<std::int32_t>(4096, count), title);
    ChangeActiveWin(list, 0);
    return data_no;
  }
  void AddPeak(double center, double half_width = 5) {
    PeakTable& table = workspace.Peaks[view.DataNo];
    PeakRec& peak = table.Peaks[table.Count];
    peak.Center = center;
    peak.HalfWidth = half_width;
    ++table.Count;
  }
  // Native files a.xbm, b.xbm ... of three channels each, opened together by the file dialog.
  void OpenFiles(int count) {
    std::vector<std::string> paths;
    for (int i = 0; i < count; ++i) {
      const std::string name = std::string(1, static_cast<char>('a' + i)) + ".xbm";
      paths.push_back(folder.Path(name));
      Show({1, 2, 3}, name);
      SaveGraphAs(program, paths.back());
    }
    dialogs.ExpectOpen(paths);
    form.tool_bars.tlbrFile.Press("LoadData");
  }
  void TypeCursor(const std::string& text) { form.cursor.inumCursorCh.Type(text); }
  void Press(FormKey key, KeyModifier modifier = KeyModifier::None, Control* focused = nullptr) {
    form.Form_KeyDown(key, modifier, focused);
  }
  MenuItem& Menu(const std::string& name) {
    auto* item = dynamic_cast<MenuItem*>(form.Controls().Find(name));
    if (item == nullptr) throw std::logic_error("no menu entry " + name);
    return *item;
  }
  void MouseDown(int win_no, double x) {
    form.graphs.picGraph[win_no].MouseDown.Fire({x, 0.5, MouseButton::Left, false});
  }
  void MouseMove(int win_no, double x, MouseButton button = MouseButton::Left) {
    form.graphs.picGraph[win_no].MouseMove.Fire({x, 0.5, button, false});
  }
  void MouseUp(int win_no, double x) {
    form.graphs.picGraph[win_no].MouseUp.Fire({x, 0.5, MouseButton::Left, false});
  }

  ScriptedFormHost host;
  RecordingLauncher launcher;
  MemorySettings settings;
  frmDorvane form{program, host, launcher, settings};
};

}  // namespace dorvane
