#include "forms/AttachForms.h"

namespace dorvane {

void AttachForms(frmDorvane& main, frmSelGraph& graphs, frmRoiReport& regions, frmLog& log,
                 frmKeys& keys) {
  main.Attach("mnuSelGraph", graphs, [&graphs] { graphs.GraphSel_Repl(1); });
  main.Attach("mnuRoiReport", regions, [&regions] { regions.Open(); });
  main.Attach("ShowLog", log, [&log] { log.Show(); });
  main.Attach("mnuKeys", keys, [&keys] { keys.Show(); });
}

void AttachFitForms(frmDorvane& main, const Program& program, frmManualFit& manual_fit,
                    frmInputFitParameter& fit_input) {
  const auto open = [&program, &manual_fit] { manual_fit.Open(program.view.GraphNo); };
  main.Attach("ManFit", manual_fit, open);
  main.Attach("NaxManualFit", manual_fit, open);
  main.Attach("mnuInputFitParameter", fit_input, [&fit_input] { fit_input.Open(); });
}

void AttachAtom(frmDorvane& main, const Program& program, frmAtom& atom) {
  main.Attach("Atom", atom,
              [&program, &atom] { atom.Open(program.view.GraphNo, frmAtom::Mode::Mark); });
}

void AttachLattice(frmDorvane& main, const Program& program, frmPeakCal& lattice) {
  main.Attach("hkl", lattice, [&program, &lattice] { lattice.Open(program.view.GraphNo); });
}

void AttachResultDirectory(frmDorvane& main, frmResultDirectory& result_directory) {
  main.Attach("mnuResultDirectory", result_directory,
              [&result_directory] { result_directory.Open(); });
}

}  // namespace dorvane
