#include "lattice/CrystalFile.h"

#include <algorithm>

#include "support/CodePage.h"
#include "support/NumberText.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr int kFreeLines = 10;
constexpr std::string_view kBlanks = " \t\r";

// Cuts a text into its fields. Separators and quotes are no trail bytes of code page 932, so bytes
// can be compared.
class FieldReader {
 public:
  explicit FieldReader(std::string_view text) : rest_(text) {}

  void SkipLines(int count) {
    for (int i = 0; i < count; ++i) {
      if (rest_.empty()) throw Fault(FaultCode::EndOfFile);
      TakeLine();
    }
  }

  std::string_view Text() {
    SkipBlankLines();
    if (rest_.empty()) throw Fault(FaultCode::EndOfFile);
    SkipBlanks();
    return !rest_.empty() && rest_.front() == '"' ? Quoted() : Plain();
  }

  double Number() { return NumberOf(Text()); }
  std::int16_t Int16() { return Int16Of(Text()); }

  // Line of the last field asked for, from 1.
  int Line() const { return line_; }

 private:
  std::string_view Take(std::size_t count) {
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(taken.size());
    return taken;
  }

  void TakeLine() {
    Take(std::min(rest_.find('\n'), rest_.size()) + 1);
    ++next_line_;
    at_line_start_ = true;
  }

  void SkipBlanks() { Take(std::min(rest_.find_first_not_of(kBlanks), rest_.size())); }

  void SkipBlankLines() {
    while (at_line_start_ && !rest_.empty() && Trim(rest_.substr(0, rest_.find('\n'))).empty()) {
      TakeLine();
    }
    line_ = next_line_;
  }

  std::string_view Plain() {
    const std::string_view field = Take(std::min(rest_.find_first_of(",\n"), rest_.size()));
    TakeSeparator();
    return Trim(field);
  }

  std::string_view Quoted() {
    Take(1);
    const std::string_view field = Take(std::min(rest_.find_first_of("\"\n"), rest_.size()));
    if (rest_.empty() || rest_.front() != '"') throw Fault(FaultCode::BadArgument);
    Take(1);
    SkipBlanks();
    if (!rest_.empty() && rest_.front() != ',' && rest_.front() != '\n') {
      throw Fault(FaultCode::BadArgument);
    }
    TakeSeparator();
    return field;
  }

  void TakeSeparator() {
    if (!rest_.empty() && rest_.front() == ',') {
      Take(1);
      at_line_start_ = false;
    } else {
      TakeLine();
    }
  }

  std::string_view rest_;
  int next_line_ = 1;
  int line_ = 1;
  bool at_line_start_ = true;
};

// Triples up to 0, 0, 0. The terminator is due after the last possible line too, so that an open
// list of that length takes the next crystal's name as a number.
void ReadLines(FieldReader& fields, CrystalRec& crystal) {
  for (std::int16_t n = 0;; ++n) {
    const std::int16_t h = fields.Int16();
    const std::int16_t k = fields.Int16();
    const std::int16_t l = fields.Int16();
    crystal.LineCount = n;
    if (h == 0 && k == 0 && l == 0) return;
    crystal.H[n] = h;
    crystal.K[n] = k;
    crystal.L[n] = l;
  }
}

void ReadCrystal(FieldReader& fields, CrystalRec& crystal) {
  crystal.Name = FromCodePage(fields.Text());
  crystal.LatticeType = fields.Int16();
  for (double& length : crystal.Lat) length = fields.Number();
  for (double& angle : crystal.Ang) angle = fields.Number();
  ReadLines(fields, crystal);
}

// `place` stands before the line number in the text of a fault.
CrystalLibrary ReadLibrary(std::string_view bytes, const std::string& place) {
  CrystalLibrary library;
  FieldReader fields(bytes);
  try {
    fields.SkipLines(kFreeLines);
    library.CrystalCount = fields.Int16();
    for (int i = 0; i < library.CrystalCount; ++i) ReadCrystal(fields, library.CrystalTable[i]);
  } catch (const Fault& fault) {
    throw Fault(fault.Code(), place + "line " + std::to_string(fields.Line()));
  }
  return library;
}

}  // namespace

CrystalLibrary ReadCrystalFile(std::string_view bytes) {
  return ReadLibrary(bytes, "");
}

CrystalLibrary ReadCrystalFile(FileLayer& files, const std::string& path) {
  ByteVector bytes;
  try {
    bytes = ReadFile(files, path);
  } catch (const Fault& fault) {
    throw Fault(fault.Code(), path);
  }
  return ReadLibrary(AsText(bytes), path + ", ");
}

}  // namespace dorvane
