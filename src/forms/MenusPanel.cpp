#include "forms/MenusPanel.h"

#include <algorithm>
#include <stdexcept>

#include "forms/EnableRules.h"
#include "forms/MenuTable.h"

namespace dorvane {

MenusPanel::MenusPanel(PanelWork& work, FormCommands& commands) : work_(work), commands_(commands) {
  for (const MenuRow& row : MenuTable()) {
    MenuItem& item =
        items_.emplace_back(work.controls, std::string(row.name), std::string(row.caption),
                            Find(row.parent), std::string(row.key), row.separated);
    if (IsMenu(row)) continue;
    item.Click.Connect([this, &item, &row] {
      if (item.Enabled()) commands_.Run(CommandOf(row));
    });
  }
  commands.Changed.Connect([this] { Refresh(); });
  ShowTips();
}

MenuItem* MenusPanel::Find(std::string_view name) {
  const auto found = std::find_if(items_.begin(), items_.end(),
                                  [name](const MenuItem& item) { return item.Name() == name; });
  return found == items_.end() ? nullptr : &*found;
}

MenuItem& MenusPanel::At(std::string_view name) {
  MenuItem* item = Find(name);
  if (item == nullptr) throw std::out_of_range("no menu entry " + std::string(name));
  return *item;
}

void MenusPanel::ShowTips() {
  for (std::size_t i = 0; i < items_.size(); ++i) {
    const MenuRow& row = MenuTable()[i];
    if (row.parent.empty()) continue;
    items_[i].SetTip(TipOf(row));
  }
}

void MenusPanel::Refresh() {
  const Program& program = work_.program;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    const MenuRow& row = MenuTable()[i];
    MenuItem& item = items_[i];
    if (IsMenu(row)) continue;
    const bool bound = commands_.Bound(CommandOf(row));
    item.SetEnabled(bound && Allowed(program, "menu", row.name));
    if (row.checked != nullptr) item.SetChecked(row.checked(program));
  }
  const std::string& caption = program.view.CloseGraphCaption;
  if (!caption.empty()) At("mnuCloseGraph").SetCaption("&" + WithoutMnemonic(caption));
}

}  // namespace dorvane
