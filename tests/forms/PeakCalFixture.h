// The lattice form over a spectrum whose peaks are placed by their d values, and a small library
// with one crystal of each system.
#pragma once

#include <cmath>
#include <functional>

#include "forms/FormFixture.h"
#include "forms/frmPeakCal.h"
#include "lattice/CellGeometry.h"
#include "program/ProgramFixture.h"
#include "support/CodePage.h"
#include "support/MemorySettings.h"
#include "support/NumberText.h"

namespace dorvane {

// Places in the library below.
enum Sample : int { kCu, kTin, kCorundum, kOlivine, kCryolite, kKyanite, kMgO, kOdd };

inline constexpr std::array<Cell6, 7> kCells{{{3.615, 3.615, 3.615, 90, 90, 90},
                                              {5.8316, 5.8316, 3.1815, 90, 90, 90},
                                              {4.7587, 4.7587, 12.9929, 90, 90, 120},
                                              {4.7535, 10.1943, 5.9807, 90, 90, 90},
                                              {5.4024, 5.5959, 7.7564, 90, 90.278, 90},
                                              {7.1262, 7.852, 5.5724, 89.99, 101.11, 106.03},
                                              {4.2112, 4.2112, 4.2112, 90, 90, 90}}};

struct Plane {
  int h, k, l;
};
// Lines of every crystal but the cubic ones; no two of a cell are nearer than the judgment range.
inline const std::vector<Plane> kPlanes{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 1, 0}, {1, 0, 1},
                                        {0, 1, 1}, {1, 1, 1}, {2, 0, 1}, {1, 2, 0}, {0, 1, 2}};
inline const std::vector<Plane> kCubicPlanes{{1, 1, 1}, {2, 0, 0}, {2, 2, 0}, {3, 1, 1}, {4, 0, 0}};

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

  static std::string LibraryText(int count = 8) {
    const char* heads[] = {"'Cu',0",       "'Tin',1",     "'Al2O3',2", "'Olivine',3",
                           "'Cryolite',4", "'Kyanite',5", "'MgO',0",   "'Odd',9"};
    std::string text;
    for (int line = 0; line < 10; ++line) text += "comment\n";
    text += std::to_string(count) + "\n";
    for (int i = 0; i < count; ++i) {
      text += heads[i];
      const Cell6& cell = kCells[static_cast<std::size_t>(i < 7 ? i : 0)];
      for (const double value : cell) text += "," + PlainNumber(value);
      for (const Plane& p : i == kCu || i == kMgO ? kCubicPlanes : kPlanes) {
        text += "\n" + std::to_string(p.h) + "," + std::to_string(p.k) + "," + std::to_string(p.l);
      }
      text += "\n0,0,0\n";
    }
    std::replace(text.begin(), text.end(), '\'', '"');
    return text;
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
    const auto& planes = sample == kCu || sample == kMgO ? kCubicPlanes : kPlanes;
    for (const Plane& p : planes) {
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
