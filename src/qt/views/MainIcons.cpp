#include "qt/views/MainIcons.h"

#include <algorithm>
#include <array>

namespace dorvane {
namespace {

struct IconRow {
  std::string_view key;
  const char* icon;
};
constexpr std::array kIcons{
    IconRow{"LoadData", "open"},
    IconRow{"SaveData", "save"},
    IconRow{"Exit", "exit"},
    IconRow{"Printer", "print"},
    IconRow{"Property", "properties"},
    IconRow{"Atom", "element"},
    IconRow{"Calib", "calibration"},
    IconRow{"Smooth", "smooth"},
    IconRow{"BackGround", "background"},
    IconRow{"CalcSpect", "curves"},
    IconRow{"CalSet", "settings"},
    IconRow{"ShowLog", "log"},
    IconRow{"AllFit", "fit-all"},
    IconRow{"ManFit", "manual-fit"},
    IconRow{"MkDel", "peak-delete"},
    IconRow{"DelAll", "delete"},
    IconRow{"AutoFit", "auto-fit"},
    IconRow{"JmpLeft", "jump-left"},
    IconRow{"JmpRight", "jump-right"},
    IconRow{"Report", "report"},
    IconRow{"AreaCursor", "area"},
    IconRow{"hkl", "lattice"},
    IconRow{"CursorLeft", "step-left"},
    IconRow{"CursorRight", "step-right"},
    IconRow{"All", "peak-search"},
    IconRow{"MkIns", "peak-insert"},
    IconRow{"Fit", "fit"},
    IconRow{"Split", "split"},
    IconRow{"RoiAdd", "region-add"},
    IconRow{"RoiDel", "region-delete"},
    IconRow{"RoiJmpLeft", "region-left"},
    IconRow{"RoiJmpRight", "region-right"},
    IconRow{"Expand", "expand"},
    IconRow{"NaxAllFit", "nax-fit"},
    IconRow{"NaxManualFit", "nax-manual"},
};

}  // namespace

QString IconNameOf(std::string_view key) {
  const auto found = std::find_if(kIcons.begin(), kIcons.end(),
                                  [key](const IconRow& row) { return row.key == key; });
  return found == kIcons.end() ? "" : found->icon;
}

}  // namespace dorvane
