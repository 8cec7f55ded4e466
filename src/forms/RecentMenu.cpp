#include "forms/RecentMenu.h"

#include "files/SplitPath.h"

namespace dorvane {
namespace {

// The last digit of the entry's number is its mnemonic.
std::string CaptionOf(int index, const std::string& path) {
  std::string number = std::to_string(index + 1);
  number.insert(number.size() - 1, "&");
  const PathParts parts = SplitPath(path);
  const std::size_t name_at = parts.Drive.size() + parts.Dir.size();
  return number + " " + WithoutMnemonic(path.substr(name_at));
}

}  // namespace

RecentMenu::RecentMenu(ControlList& controls, MenuItem& menu, RecentFiles& files)
    : menu_(menu), files_(files), mnuRecent(controls, "mnuRecent", kMostRecentFiles, "", &menu) {
  for (int i = 0; i < mnuRecent.Size(); ++i) {
    mnuRecent[i].Click.Connect([this, i] {
      const auto at = static_cast<std::size_t>(i);
      if (at >= files_.Paths().size()) return;
      const std::string path = files_.Paths()[at];  // a copy: the list changes with the choice
      Chosen.Fire(path);
    });
  }
  files.Changed.Connect([this] { Refresh(); });
  Refresh();
}

void RecentMenu::Refresh() {
  const std::vector<std::string>& paths = files_.Paths();
  menu_.SetEnabled(!paths.empty());
  for (int i = 0; i < mnuRecent.Size(); ++i) {
    const auto at = static_cast<std::size_t>(i);
    const bool used = at < paths.size();
    mnuRecent[i].SetVisible(used);
    mnuRecent[i].SetCaption(used ? CaptionOf(i, paths[at]) : "");
    mnuRecent[i].SetTip(used ? paths[at] : "");
  }
}

}  // namespace dorvane
