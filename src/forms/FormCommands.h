// The commands of the main form by their names: rows of the program's table, and what the form and
// the forms beside it add.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "forms/PanelWork.h"

namespace dorvane {

class FormCommands {
 public:
  explicit FormCommands(PanelWork& work) : work_(work) {}

  // Binds a key, or the name of a menu entry without a key, to what opens another form or belongs
  // to the main form alone; it goes before a row of the table.
  void Bind(std::string_view name, std::function<void()> run);
  // Whether a name does anything. What isn't bound is shown switched off.
  bool Bound(std::string_view name) const;
  // A name that is not bound does nothing.
  void Run(std::string_view name);

  Event<> Changed;  // a further name is bound

 private:
  PanelWork& work_;
  std::map<std::string, std::function<void()>, std::less<>> bound_;
};

}  // namespace dorvane
