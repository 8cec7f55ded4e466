// Records of comma-separated text: fields that are texts or plain numbers.
#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace dorvane {

// A text, which is written in quotes, or a number, which is written bare: up to 15 significant
// digits, never an exponent.
class LogField {
 public:
  LogField(const char* text) : value_(std::string(text)) {}
  LogField(std::string_view text) : value_(std::string(text)) {}
  LogField(std::string text) : value_(std::move(text)) {}
  LogField(double number) : value_(number) {}
  LogField(int number) : value_(static_cast<double>(number)) {}

  // As it stands in the record, UTF-8. A quote within a text is doubled.
  std::string Written() const;

  friend bool operator==(const LogField&, const LogField&) = default;

 private:
  std::variant<std::string, double> value_;
};

// An empty record is one empty text.
using LogRecord = std::vector<LogField>;
using LogRecords = std::vector<LogRecord>;

// One line for each record, ending in CR LF, in the system's code page.
std::string CsvText(const LogRecords& records);

}  // namespace dorvane
