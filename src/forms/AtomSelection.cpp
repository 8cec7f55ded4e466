#include "forms/AtomSelection.h"

#include <charconv>
#include <string>

#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr std::string_view kName = "AtomSel";
constexpr std::string_view kAll = "11111111";
static_assert(kAll.size() == kLineKinds);

std::string FlagsOf(const AtomSelTable& selections, int num) {
  std::string flags;
  for (int kind = 0; kind < kLineKinds; ++kind) {
    flags += selections[kind][num] == kFalse ? '0' : '1';
  }
  return flags;
}

// Nothing where the text is none of an element.
void TakeText(std::string_view text, AtomSelTable& selections) {
  int num = 0;
  const char* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, num);
  if (error != std::errc() || num < kFirstElement || num > kLastElement) return;
  const std::string_view flags(rest, static_cast<std::size_t>(end - rest));
  if (flags.size() != 1 + kAll.size() || flags[0] != ' ') return;
  if (flags.find_first_not_of("01", 1) != std::string_view::npos) return;
  for (int kind = 0; kind < kLineKinds; ++kind) {
    selections[kind][num] = flags[static_cast<std::size_t>(kind) + 1] == '0' ? kFalse : kTrue;
  }
}

}  // namespace

AtomSelTable StoredAtomSel(const SettingsStore& settings) {
  AtomSelTable selections;
  for (auto& row : selections) row.fill(kTrue);
  for (const std::string& text : settings.Texts(kName)) TakeText(text, selections);
  return selections;
}

void KeepAtomSel(SettingsStore& settings, const AtomSelTable& selections) {
  std::vector<std::string> texts;
  for (int num = kFirstElement; num <= kLastElement; ++num) {
    const std::string flags = FlagsOf(selections, num);
    if (flags != kAll) texts.push_back(std::to_string(num) + " " + flags);
  }
  settings.SetTexts(kName, texts);
}

}  // namespace dorvane
