// The lattice form over a spectrum whose peaks are placed by their d values, and a small library
// with one crystal of each system.
#pragma once

#include <cmath>
#include <functional>

#include "forms/FormFixture.h"
#include "forms/SmallLibrary.h"
#include "forms/frmPeakCal.h"
#include "program/ProgramFixture.h"
#include "support/CodePage.h"
#include "support/MemorySettings.h"
#include "support/NumberText.h"

namespace dorvane {

class PeakCalTest : public ProgramTest {
 protected:
  PeakCalTest() {
    views.Add(marks);
    PutLibrary();
    data_no = Show(std::vector<std::int32_t>(8192, 5), "corundum.npd");
    workspace.UseFileEgc = 1;
    MeasProp& prop = workspace.Spectra[data_no].Prop;
    prop.EGC[1] = 0.02;  // keV per channel, E = 0.02 * (index + 1)
    prop.TwoTheta = 6;
    prop.Load = 12.5;
    prop.Temp = 27;
    workspace.DefaultProp.TwoTheta = 5.5;
    workspace.Spectra[data_no].MsuName.Set("corundum");
    workspace.Settings.JudgeRange = 0.005;
  }

  void PutLibrary() { folder.Put("crystal.dat", LibraryText()); }

  // Index whose d value is `d`, by E = 12.3981 / (2 d sin(3 degrees)).
  static double ChannelAt(double d) {
    return 12.3981 / (2 * d * std::sin(std::acos(-1.0) / 60)) / 0.02 - 1;
  }
  void AddPeakAt(double channel) {
    PeakTable& table = workspace.Peaks[data_no];
    PeakRec& peak = table.Peaks[table.Count++];
    peak.Center = channel;
    peak.Height = 100 + table.Count;
    peak.HalfWidth = 5;
    peak.Amplitude = 1000;
    peak.FitEngine = kEngineExpress;
  }
  void AddPeak(double d) { AddPeakAt(ChannelAt(d)); }
  // Peaks where the lines of a sample are when its lengths are `scale` times as large.
  void AddLines(Sample sample, double scale = 1) {
    for (const Plane& p : PlanesOf(sample)) {
      AddPeak(scale * PlaneDistance(kCells[static_cast<std::size_t>(sample)], p.h, p.k, p.l));
    }
  }

  // Opens the form, works it and leaves it; what was narrated is kept in `log_text`.
  void Work(const std::function<void()>& work, std::optional<std::string> keep_as = {}) {
    host.ExpectModal([&, keep_as](Form&) {
      work();
      dialogs.ExpectSave(keep_as);
      form.cmdExit.Press();
    });
    form.Open(view.GraphNo);
  }
  // The same with a sample chosen and its peaks in the spectrum.
  void WorkOn(Sample sample, double scale, const std::function<void()>& work) {
    AddLines(sample, scale);
    Work([&, sample] {
      Choose(sample);
      work();
    });
  }
  void Choose(Sample sample) { form.cmbElement.SetIndex(sample); }
  void Execute() { form.cmdCal.Press(); }
  void Fit(Sample sample) {
    Choose(sample);
    Execute();
  }
  // As a user types into a box and leaves it; false where the box keeps the focus.
  static bool Type(TextBox& box, const std::string& text) {
    box.SetText(text);
    return box.Leave();
  }
  static double ValueIn(const TextBox& box) {
    return NumberOf(box.Text().substr(0, box.Text().find("+-")));
  }
  std::vector<double> Calculated() const {
    std::vector<double> values;
    for (int k = 0; k < 6; ++k) values.push_back(ValueIn(form.txtLatticeLength[k]));
    return values;
  }
  std::vector<bool> On(const ControlArray<TextBox>& boxes) const {
    std::vector<bool> on;
    for (int k = 0; k < boxes.Size(); ++k) on.push_back(boxes[k].Enabled());
    return on;
  }
  static std::vector<std::string> Texts(const ControlArray<TextBox>& boxes) {
    std::vector<std::string> texts;
    for (int k = 0; k < boxes.Size(); ++k) texts.push_back(boxes[k].Text());
    return texts;
  }
  static std::vector<std::string> RowOf(const Grid& grid, int row) {
    std::vector<std::string> texts;
    for (int column = 1; column <= grid.Columns(); ++column) {
      const GridCell& cell = grid.Cell(row, column);
      texts.push_back(cell.is_check ? (cell.checked ? "[x]" : "[ ]") : cell.text);
    }
    return texts;
  }
  void SetUse(Grid& grid, int row, bool use) { grid.CheckCell(row, UseColumn(grid), use); }
  std::string LogText() const { return FromCodePage(folder.Get("crystalfit.csv")); }
  // How many times a text stands in the log.
  int Logged(const std::string& text) const {
    const std::string text_of_log = LogText();
    int count = 0;
    for (auto at = text_of_log.find(text); at != std::string::npos;
         at = text_of_log.find(text, at + 1))
      ++count;
    return count;
  }
  std::vector<std::string> MarksShown() const {
    std::vector<std::string> texts;
    for (const MarkRec& mark : program.spect.NamedLines(0)) texts.emplace_back(TextOf(mark));
    return texts;
  }

  std::int16_t data_no = 0;
  LineMarks marks{program};
  ScriptedFormHost host;
  MemorySettings settings;
  frmPeakCal form{program, host, settings, marks};
};

}  // namespace dorvane
