// The port to the table of element lines: one record for each element, found by number or symbol.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace dorvane {

// The table in the directory of the program's own files.
constexpr const char* kElementFileName = "Atomic.db";

constexpr int kLineKinds = 8;
constexpr int kFirstElement = 1;
constexpr int kLastElement = 103;

// A row of the element table.
struct ElementRec {
  struct Line {
    std::string field;                 // name of the table's field: "KAve" .. "AbsEdge"
    std::optional<double> energy_kev;  // nothing where the element has no such line or edge
  };
  int Num = 0;  // atomic number
  std::string Symbol;
  std::string Element;                 // name
  std::array<Line, kLineKinds> Lines;  // fields 4..11 of the table, in its order
};

class ElementStore {
 public:
  virtual ~ElementStore() = default;
  // From now on searches read this table. False where there is none that can be read; nothing is
  // found then.
  virtual bool Open(const std::string& path) = 0;
  virtual bool IsOpen() const = 0;
  // The record of an atomic number; nothing for a number that no record has.
  virtual std::optional<ElementRec> FindByNum(double num) = 0;
  // The record of a symbol, small and capital letters being equal.
  virtual std::optional<ElementRec> FindBySymbol(std::string_view symbol) = 0;
};

}  // namespace dorvane
