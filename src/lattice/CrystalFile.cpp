#include "lattice/CrystalFile.h"

#include <algorithm>

#include "support/CodePage.h"
#include "support/NumberText.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr int kFreeLines = 10;

// Cuts a text into its fields. Blanks and line ends in front of a field are skipped, so that blank
// lines are no fields. Separators and quotes are no trail bytes of code page 932: bytes can be
// compared.
class FieldReader {
 public:
  explicit FieldReader(std::string_view text) : rest_(text) {}

  void SkipLines(int count) {
    for (int i = 0; i < count; ++i) {
      StartHere();
      Take(rest_.find('\n'));
      Take(1);
    }
  }

  std::string_view Text() {
    Take(rest_.find_first_not_of(" \t\r\n"));
    StartHere();
    return rest_.front() == '"' ? Quoted() : Plain();
  }

  double Number() { return NumberOf(Text()); }
  std::int16_t Int16() { return Int16Of(Text()); }

  // Line of the last field or of the end that was met instead, from 1.
  int Line() const { return field_line_; }

 private:
  void StartHere() {
    field_line_ = line_;
    if (rest_.empty()) throw Fault(FaultCode::EndOfFile);
  }

  // The next bytes, all that are left where there are fewer.
  std::string_view Take(std::size_t count) {
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(taken.size());
    line_ += static_cast<int>(std::count(taken.begin(), taken.end(), '\n'));
    return taken;
  }

  std::string_view Plain() {
    const std::string_view field = Take(rest_.find_first_of(",\n"));
    Take(1);
    return Trim(field);
  }

  std::string_view Quoted() {
    Take(1);
    const std::string_view field = Take(rest_.find_first_of("\"\n"));
    if (Take(1) != "\"") throw Fault(FaultCode::BadArgument);
    if (!Plain().empty()) throw Fault(FaultCode::BadArgument);
    return field;
  }

  std::string_view rest_;
  int line_ = 1;
  int field_line_ = 1;
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
