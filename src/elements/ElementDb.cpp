#include "elements/ElementDb.h"

#include <sqlite3.h>

#include <cmath>
#include <filesystem>

namespace dorvane {
namespace {

constexpr const char* kByNum = "SELECT * FROM Elements WHERE Num = ?1";
constexpr const char* kBySymbol = "SELECT * FROM Elements WHERE Symbol = ?1 COLLATE NOCASE";

constexpr int kNum = 0;
constexpr int kSymbol = 1;
constexpr int kElement = 2;
constexpr int kFirstLine = 3;
constexpr int kColumns = kFirstLine + kLineKinds;

constexpr int kLongestValue = 1000;   // bytes
constexpr int kStepsPerRound = 1000;  // of the database's machine
constexpr int kMostRounds = 1000;

// A search that never ends, such as one of a view hidden in the table's place, is stopped.
int CountRound(void* rounds) {
  return ++*static_cast<int*>(rounds) > kMostRounds ? 1 : 0;
}

// One use of a statement, which holds no lock afterwards.
class Search {
 public:
  explicit Search(sqlite3_stmt* statement) : statement_(statement) {
    sqlite3_progress_handler(sqlite3_db_handle(statement), kStepsPerRound, CountRound, &rounds_);
  }
  Search(const Search&) = delete;
  Search& operator=(const Search&) = delete;
  ~Search() {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
    sqlite3_progress_handler(sqlite3_db_handle(statement_), 0, nullptr, nullptr);
  }

  // The first row that is a record.
  std::optional<ElementRec> First() const {
    while (sqlite3_step(statement_) == SQLITE_ROW) {
      if (auto record = Record()) return record;
    }
    return {};
  }

 private:
  bool Has(int column, int type) const { return sqlite3_column_type(statement_, column) == type; }

  std::optional<std::string> Text(int column) const {
    if (!Has(column, SQLITE_TEXT)) return {};
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
    if (text == nullptr) return {};
    return std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column)));
  }

  // False for what is neither an energy nor empty.
  bool TakeLine(int kind, ElementRec::Line& line) const {
    const int column = kFirstLine + kind;
    const char* name = sqlite3_column_name(statement_, column);
    line.field = name == nullptr ? "" : name;
    if (Has(column, SQLITE_NULL)) return true;
    if (!Has(column, SQLITE_FLOAT) && !Has(column, SQLITE_INTEGER)) return false;
    line.energy_kev = sqlite3_column_double(statement_, column);
    return std::isfinite(*line.energy_kev) && *line.energy_kev > 0;
  }

  std::optional<ElementRec> Record() const {
    const auto symbol = Text(kSymbol);
    const auto element = Text(kElement);
    if (!Has(kNum, SQLITE_INTEGER) || !symbol || !element) return {};
    const sqlite3_int64 num = sqlite3_column_int64(statement_, kNum);
    if (num < kFirstElement || num > kLastElement) return {};
    ElementRec record{static_cast<int>(num), *symbol, *element, {}};
    for (int kind = 0; kind < kLineKinds; ++kind) {
      if (!TakeLine(kind, record.Lines[static_cast<std::size_t>(kind)])) return {};
    }
    return record;
  }

  sqlite3_stmt* statement_;
  int rounds_ = 0;
};

// The path as an address that says that nobody writes the file: then neither a lock nor a log is
// made beside it.
std::string AddressOf(const std::string& path) {
  std::string address = "file://";
  for (const char c : std::filesystem::absolute(path).string()) {
    if (c == '%') {
      address += "%25";
    } else if (c == '?') {
      address += "%3f";
    } else if (c == '#') {
      address += "%23";
    } else {
      address += c;
    }
  }
  return address + "?immutable=1";
}

}  // namespace

void ElementDb::Close::operator()(sqlite3* database) const {
  sqlite3_close(database);
}
void ElementDb::Close::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

ElementDb::Statement ElementDb::Prepare(const char* query) const {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(database_.get(), query, -1, &statement, nullptr);
  Statement prepared(statement);
  if (sqlite3_column_count(statement) < kColumns) prepared.reset();
  return prepared;
}

// Only a plain file is asked: a pipe would never answer.
bool ElementDb::Open(const std::string& path) {
  by_num_.reset();
  by_symbol_.reset();
  database_.reset();
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return false;
  sqlite3* database = nullptr;
  const int opened = sqlite3_open_v2(AddressOf(path).c_str(), &database,
                                     SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
  database_.reset(database);
  if (opened != SQLITE_OK) return false;
  sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_limit(database, SQLITE_LIMIT_LENGTH, kLongestValue * kColumns);
  by_symbol_ = Prepare(kBySymbol);
  if (by_symbol_) by_num_ = Prepare(kByNum);
  return IsOpen();
}

std::optional<ElementRec> ElementDb::FindByNum(double num) {
  if (!IsOpen()) return {};
  const Search search(by_num_.get());
  sqlite3_bind_double(by_num_.get(), 1, num);
  return search.First();
}

std::optional<ElementRec> ElementDb::FindBySymbol(std::string_view symbol) {
  if (!IsOpen()) return {};
  const Search search(by_symbol_.get());
  sqlite3_bind_text64(by_symbol_.get(), 1, symbol.data(), symbol.size(), SQLITE_TRANSIENT,
                      SQLITE_UTF8);
  return search.First();
}

}  // namespace dorvane
