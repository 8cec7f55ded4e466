#include "lattice/LogRecord.h"

#include "support/CodePage.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

std::string Quoted(std::string_view text) {
  std::string out = "\"";
  for (const char c : text) {
    if (c == '"') out += '"';
    out += c;
  }
  return out + '"';
}

}  // namespace

std::string LogField::Written() const {
  if (const auto* number = std::get_if<double>(&value_)) return DecimalNumber(*number);
  return Quoted(std::get<std::string>(value_));
}

std::string CsvText(const LogRecords& records) {
  std::string text;
  for (const LogRecord& record : records) {
    for (std::size_t i = 0; i < record.size(); ++i) {
      if (i > 0) text += ',';
      text += record[i].Written();
    }
    text += "\r\n";
  }
  return ToCodePage(text);
}

}  // namespace dorvane
