#include "forms/FormCommands.h"

#include "program/Commands.h"

namespace dorvane {

void FormCommands::Bind(std::string_view name, std::function<void()> run) {
  bound_.insert_or_assign(std::string(name), std::move(run));
  Changed.Fire();
}

bool FormCommands::Bound(std::string_view name) const {
  return bound_.contains(name) || FindCommand(name) != nullptr;
}

void FormCommands::Run(std::string_view name) {
  if (const auto own = bound_.find(name); own != bound_.end()) {
    const auto run = own->second;
    work_.Do([&run](Program&) { run(); });
  } else if (const Command* command = FindCommand(name)) {
    work_.Do(command->run);
  }
}

}  // namespace dorvane
