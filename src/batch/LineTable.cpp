#include "batch/LineTable.h"

#include <algorithm>

#include "batch/BatchError.h"
#include "program/EnergyCalibration.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kNoColumn = static_cast<std::size_t>(-1);

[[noreturn]] void Fail(int line, const std::string& what) {
  throw BatchError("line " + std::to_string(line) + ": " + what);
}

std::string_view CutTo(std::string_view& text, char end) {
  const auto at = text.find(end);
  const std::string_view head = text.substr(0, at);
  text.remove_prefix(at == std::string_view::npos ? text.size() : at + 1);
  return Trim(head);
}

std::vector<std::string_view> FieldsOf(std::string_view line) {
  std::vector<std::string_view> fields;
  while (!line.empty()) fields.push_back(CutTo(line, ','));
  return fields;
}

std::string_view FieldAt(const std::vector<std::string_view>& fields, std::size_t column) {
  return column < fields.size() ? fields[column] : std::string_view();
}

struct Columns {
  std::size_t channel = kNoColumn;
  std::size_t energy = kNoColumn;
  std::size_t name = kNoColumn;
};

Columns ColumnsOf(std::string_view heading, int line) {
  const std::vector<std::string_view> fields = FieldsOf(heading);
  const auto find = [&](std::string_view title) {
    const auto at = std::find(fields.begin(), fields.end(), title);
    return at == fields.end() ? kNoColumn : static_cast<std::size_t>(at - fields.begin());
  };
  const Columns columns{find("channel"), find("energy_keV"), find("name")};
  if (columns.energy == kNoColumn) Fail(line, "no column energy_keV");
  return columns;
}

KnownLine LineOf(const std::vector<std::string_view>& fields, const Columns& columns, int line) {
  const auto number = [&](std::string_view field) {
    const auto value = ParseNumber(field);
    if (!value) Fail(line, "\"" + std::string(field) + "\" is no number");
    return *value;
  };
  KnownLine known;
  const std::string_view channel = FieldAt(fields, columns.channel);
  if (!channel.empty()) known.channel = number(channel);
  known.energy_kev = number(FieldAt(fields, columns.energy));
  if (!(known.energy_kev > 0)) Fail(line, "the energy is not above 0");
  known.name = FieldAt(fields, columns.name);
  return known;
}

}  // namespace

std::vector<KnownLine> ParseLineTable(std::string_view text) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  std::vector<KnownLine> lines;
  std::optional<Columns> columns;
  for (int number = 1; !text.empty(); ++number) {
    const std::string_view row = CutTo(text, '\n');
    if (row.empty()) continue;
    if (!columns) {
      columns = ColumnsOf(row, number);
      continue;
    }
    lines.push_back(LineOf(FieldsOf(row), *columns, number));
  }
  if (lines.empty()) throw BatchError("no line of known energy");
  if (lines.size() > kMostCalibPoints) {
    throw BatchError("more than " + std::to_string(kMostCalibPoints) + " lines");
  }
  return lines;
}

}  // namespace dorvane
