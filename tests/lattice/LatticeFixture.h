// A workspace with one energy-dispersive spectrum whose peaks are placed by their d values.
#pragma once

#include <cmath>
#include <memory>

#include "lattice/LatticeState.h"
#include "support/ScriptedDialogs.h"
#include "workspace/Workspace.h"

namespace dorvane {

class LatticeFixture {
 public:
  static constexpr int kDataNo = 3;

  LatticeFixture() {
    workspace->UseFileEgc = 1;
    MeasProp& prop = workspace->Spectra[kDataNo].Prop;
    prop.EGC[1] = 0.02;  // keV per channel, E = 0.02 * (index + 1)
    prop.TwoTheta = 6;
  }

  // Index whose d value is `d`, by E = 12.3981 / (2 d sin(3 degrees)).
  static double ChannelAt(double d) {
    return 12.3981 / (2 * d * std::sin(std::acos(-1.0) / 60)) / 0.02 - 1;
  }

  void AddPeak(double d) {
    PeakTable& table = workspace->Peaks[kDataNo];
    table.Peaks[table.Count++].Center = ChannelAt(d);
  }

  CrystalRec& AddCrystal(const std::string& name, std::int16_t lattice_type) {
    CrystalRec& crystal = state->Library.CrystalTable[state->Library.CrystalCount++];
    crystal.Name = name;
    crystal.LatticeType = lattice_type;
    return crystal;
  }

  static void AddLine(CrystalRec& crystal, int h, int k, int l, double d = 0) {
    const int n = crystal.LineCount++;
    crystal.H[n] = static_cast<std::int16_t>(h);
    crystal.K[n] = static_cast<std::int16_t>(k);
    crystal.L[n] = static_cast<std::int16_t>(l);
    crystal.DCalc[n] = d;
  }

  std::unique_ptr<Workspace> workspace = std::make_unique<Workspace>();
  std::unique_ptr<LatticeState> state = std::make_unique<LatticeState>();
  ScriptedDialogs dialogs;
};

}  // namespace dorvane
