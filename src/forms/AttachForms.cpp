#include "forms/AttachForms.h"

namespace dorvane {

void AttachForms(frmDorvane& main, frmSelGraph& graphs, frmRoiReport& regions, frmLog& log,
                 frmKeys& keys) {
  main.Attach("mnuSelGraph", graphs, [&graphs] { graphs.GraphSel_Repl(1); });
  main.Attach("mnuRoiReport", regions, [&regions] { regions.Open(); });
  main.Attach("ShowLog", log, [&log] { log.Show(); });
  main.Attach("mnuKeys", keys, [&keys] { keys.Show(); });
}

}  // namespace dorvane
