// A settings store that lasts as long as its test.
#pragma once

#include <map>

#include "support/SettingsStore.h"

namespace dorvane {

class MemorySettings : public SettingsStore {
 public:
  int writes = 0;

  std::vector<std::string> Texts(std::string_view name) const override {
    const auto found = texts_.find(name);
    return found == texts_.end() ? std::vector<std::string>{} : found->second;
  }
  void SetTexts(std::string_view name, const std::vector<std::string>& texts) override {
    texts_.insert_or_assign(std::string(name), texts);
    ++writes;
  }

 private:
  std::map<std::string, std::vector<std::string>, std::less<>> texts_;
};

}  // namespace dorvane
