// The submenu of recent files: an entry for each, newest first.
#pragma once

#include "forms/ControlArray.h"
#include "forms/Menus.h"
#include "forms/RecentFiles.h"

namespace dorvane {

class RecentMenu {
 public:
  // The entries hang below `menu`, which is off while no file is recent. Both outlive them.
  RecentMenu(ControlList& controls, MenuItem& menu, RecentFiles& files);

  Event<const std::string&> Chosen;  // the whole path of an entry

 private:
  void Refresh();

  MenuItem& menu_;
  RecentFiles& files_;

 public:
  ControlArray<MenuItem> mnuRecent;  // "&1 name.npd" to "1&0 name.npd"; the tip is the whole path
};

}  // namespace dorvane
