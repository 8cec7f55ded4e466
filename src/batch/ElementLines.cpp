#include "batch/ElementLines.h"

#include "batch/BatchError.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

// Fields of a row.
constexpr int kSymbol = 1;
constexpr int kKAve = 3;
constexpr int kKa1 = 4;
constexpr int kKa2 = 5;
constexpr int kKb1 = 6;

constexpr double kKb1Share = 0.2;

std::string_view FieldOf(std::string_view row, int index) {
  for (; index > 0 && !row.empty(); --index) {
    const auto comma = row.find(',');
    row.remove_prefix(comma == std::string_view::npos ? row.size() : comma + 1);
  }
  return Trim(row.substr(0, row.find(',')));
}

std::string_view RowOf(std::string_view table, std::string_view symbol) {
  while (!table.empty()) {
    const auto end = table.find('\n');
    const std::string_view row = table.substr(0, end);
    if (FieldOf(row, kSymbol) == symbol) return row;
    table.remove_prefix(end == std::string_view::npos ? table.size() : end + 1);
  }
  throw UsageError("no element \"" + std::string(symbol) + "\" in the table of element lines");
}

}  // namespace

std::vector<FluorescenceLine> KLinesOf(std::string_view table, std::string_view symbol,
                                       double share) {
  const std::string_view row = RowOf(table, symbol);
  const auto ka1 = ParseNumber(FieldOf(row, kKa1));
  const auto ka2 = ParseNumber(FieldOf(row, kKa2));
  const auto average = ParseNumber(FieldOf(row, kKAve));
  const auto kb1 = ParseNumber(FieldOf(row, kKb1));
  const std::string name(symbol);
  if (!ka1) throw UsageError("element " + name + " has no K lines");
  std::vector<FluorescenceLine> lines{{name + " Ka1", *ka1, share}};
  if (ka2 && average && *average > *ka2 && *ka1 > *average) {
    lines.push_back({name + " Ka2", *ka2, share * (*ka1 - *average) / (*average - *ka2)});
  }
  if (kb1) lines.push_back({name + " Kb1", *kb1, share * kKb1Share});
  return lines;
}

}  // namespace dorvane
