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

using Fields = std::vector<std::string>;

// The rows of a comma-separated table as RFC 4180 has them: a field may stand in quotes, in which a
// doubled quote is one and commas and line breaks are text. Blanks around a field do not count.
class CsvRows {
 public:
  explicit CsvRows(std::string_view text) : rest_(text) {}

  // False behind the last row. Throws BatchError for quotes that do not fit.
  bool Next(Fields& fields) {
    if (rest_.empty()) return false;
    line_ = next_line_;
    fields.clear();
    do {
      fields.push_back(CutField());
    } while (CutSeparator());
    return true;
  }
  // Where the row begins, from 1.
  int Line() const { return line_; }

 private:
  std::string_view Cut(std::size_t length) {
    const std::string_view head = rest_.substr(0, length);
    rest_.remove_prefix(head.size());
    next_line_ += static_cast<int>(std::count(head.begin(), head.end(), '\n'));
    return head;
  }
  std::string_view CutPlain() { return Trim(Cut(rest_.find_first_of(",\n"))); }
  std::string CutField() {
    Cut(std::min(rest_.find_first_not_of(" \t"), rest_.size()));
    return rest_.starts_with('"') ? CutQuoted() : std::string(CutPlain());
  }
  std::string CutQuoted() {
    std::string field;
    for (bool doubled = true; doubled;) {
      Cut(1);
      const auto end = rest_.find('"');
      if (end == std::string_view::npos) Fail(line_, "a quote is not closed");
      field += Cut(end);
      doubled = rest_.substr(1).starts_with('"');
      if (doubled) field += Cut(1);
    }
    Cut(1);
    if (!CutPlain().empty()) Fail(line_, "text behind a quoted field");
    return field;
  }
  // True where a field follows in the row.
  bool CutSeparator() { return Cut(1) == ","; }

  std::string_view rest_;
  int line_ = 0;
  int next_line_ = 1;
};

struct Columns {
  std::size_t channel = kNoColumn;
  std::size_t energy = kNoColumn;
  std::size_t name = kNoColumn;
};

std::string_view FieldAt(const Fields& fields, std::size_t column) {
  return column < fields.size() ? std::string_view(fields[column]) : std::string_view();
}

Columns ColumnsOf(const Fields& fields, int line) {
  const auto find = [&](std::string_view title) {
    const auto at = std::find(fields.begin(), fields.end(), title);
    return at == fields.end() ? kNoColumn : static_cast<std::size_t>(at - fields.begin());
  };
  const Columns columns{find("channel"), find("energy_keV"), find("name")};
  if (columns.energy == kNoColumn) Fail(line, "no column energy_keV");
  return columns;
}

KnownLine LineOf(const Fields& fields, const Columns& columns, int line) {
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
  std::erase(known.name, '\r');
  std::replace(known.name.begin(), known.name.end(), '\n', ' ');
  return known;
}

}  // namespace

std::vector<KnownLine> ParseLineTable(std::string_view text) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  std::vector<KnownLine> lines;
  std::optional<Columns> columns;
  CsvRows rows(text);
  for (Fields fields; rows.Next(fields);) {
    if (fields == Fields{""}) continue;
    if (columns) {
      lines.push_back(LineOf(fields, *columns, rows.Line()));
    } else {
      columns = ColumnsOf(fields, rows.Line());
    }
  }
  if (lines.empty()) throw BatchError("no line of known energy");
  if (lines.size() > kMostCalibPoints) {
    throw BatchError("more than " + std::to_string(kMostCalibPoints) + " lines");
  }
  return lines;
}

}  // namespace dorvane
