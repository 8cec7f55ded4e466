// A table of three elements: hydrogen, iron, lead.
#pragma once

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "support/ElementStore.h"

namespace dorvane {

class FakeElementStore : public ElementStore {
 public:
  static constexpr std::nullopt_t kNone = std::nullopt;

  bool there = true;               // whether it can be opened
  std::vector<std::string> paths;  // of each try
  std::vector<ElementRec> records{
      Record(1, "H", "Hydrogen", {kNone, kNone, kNone, kNone, kNone, kNone, kNone, 0.0136}),
      Record(26, "Fe", "Iron", {6.3995, 6.4039, 6.3909, 7.058, 0.7045, 0.7175, kNone, 7.112}),
      Record(82, "Pb", "Lead",
             {74.1618, 74.9693, 72.8045, 84.9381, 10.5512, 12.6144, 14.7648, 88.0045})};

  // As a table may be: not there, empty, without an element; or as it is meant to be.
  void Harm(int kind) {
    there = kind != 0;
    if (kind == 1) records.clear();
    if (kind == 2) records.pop_back();
  }

  bool Open(const std::string& path) override {
    paths.push_back(path);
    return open_ = there;
  }
  bool IsOpen() const override { return open_; }
  std::optional<ElementRec> FindByNum(double num) override {
    return First([num](const ElementRec& record) { return record.Num == num; });
  }
  std::optional<ElementRec> FindBySymbol(std::string_view symbol) override {
    return First([symbol](const ElementRec& record) {
      return std::equal(
          symbol.begin(), symbol.end(), record.Symbol.begin(), record.Symbol.end(),
          [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); });
    });
  }

 private:
  static ElementRec Record(int num, const char* symbol, const char* element,
                           const std::array<std::optional<double>, kLineKinds>& energies) {
    static constexpr const char* fields[] = {"KAve", "Ka1", "Ka2", "Kb1",
                                             "La1",  "Lb1", "Lg1", "AbsEdge"};
    ElementRec record{num, symbol, element, {}};
    for (std::size_t i = 0; i < energies.size(); ++i) record.Lines[i] = {fields[i], energies[i]};
    return record;
  }
  template <typename Match>
  std::optional<ElementRec> First(const Match& match) const {
    const auto found = std::find_if(records.begin(), records.end(), match);
    if (!open_ || found == records.end()) return {};
    return *found;
  }

  bool open_ = false;
};

}  // namespace dorvane
