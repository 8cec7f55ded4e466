// The table of element lines as a table of an SQLite database.
#pragma once

#include <memory>

#include "support/ElementStore.h"

struct sqlite3;
struct sqlite3_stmt;

namespace dorvane {

// Reads the table "Elements", whose first eleven columns are number, symbol, name and the eight
// energies in keV; it is searched by its columns Num and Symbol. Whatever the file holds, a search
// ends and nothing is written: a row that is no record (a type that is not the column's, an energy
// that is not above 0 and finite) counts as none.
class ElementDb : public ElementStore {
 public:
  bool Open(const std::string& path) override;
  bool IsOpen() const override { return by_num_ != nullptr; }
  std::optional<ElementRec> FindByNum(double num) override;
  std::optional<ElementRec> FindBySymbol(std::string_view symbol) override;

 private:
  struct Close {
    void operator()(sqlite3* database) const;
    void operator()(sqlite3_stmt* statement) const;
  };
  using Statement = std::unique_ptr<sqlite3_stmt, Close>;

  Statement Prepare(const char* query) const;

  std::unique_ptr<sqlite3, Close> database_;  // goes last
  Statement by_num_;
  Statement by_symbol_;
};

}  // namespace dorvane
