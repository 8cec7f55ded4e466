// The port to what the desktop keeps for the program between two runs, apart from the program's own
// files.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dorvane {

// Lists of texts by name. Neither call fails: what can't be kept is gone at the next start.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  // Empty for a name that has never been set.
  virtual std::vector<std::string> Texts(std::string_view name) const = 0;
  virtual void SetTexts(std::string_view name, const std::vector<std::string>& texts) = 0;
};

}  // namespace dorvane
