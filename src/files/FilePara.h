// The two files that keep the defaults from one run to the next: "syspara_a.xpr" (measurement
// properties, colours, analysis settings) and "Dorvane.ini" (five further settings). The formats
// stand in docs/formats/parameters.md.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "files/FileContext.h"
#include "support/Bytes.h"
#include "workspace/Workspace.h"

namespace dorvane {

// Names in the program directory.
constexpr const char* kParaFileName = "syspara_a.xpr";
constexpr const char* kIniFileName = "Dorvane.ini";

// What "syspara_a.xpr" holds of a workspace.
struct ParaBlock {
  MeasProp DefaultProp;
  ColorTable ColorTbl;
  std::array<char, kDisplayDefaultsSize> DisplayDefaults{};
  FitParamSet FitParam;
  MeasProp LastProp;  // on file only where SkipLastProp is 0

  friend bool operator==(const ParaBlock&, const ParaBlock&) = default;
};

// What "Dorvane.ini" holds of it.
struct IniBlock {
  AnalysisSettings Settings;
  std::int16_t FilterIndex = 1;

  friend bool operator==(const IniBlock&, const IniBlock&) = default;
};

// Replaces the file by the workspace's values; LastProp among them where SkipLastProp is 0. -1, or
// 0 after the message "Para File Write (Open Error)".
std::int16_t ParaFileWrite(FileContext& context, const std::string& path,
                           const Workspace& workspace);

// Takes the file's values into the workspace; LastProp among them where SkipLastProp is 0, else it
// stays, and bytes behind the settings are not read. -1, or 0 after the message "Para File Read
// (Open Error)" for a file that is missing, unreadable or cut short: then nothing is taken.
std::int16_t ParaFileRead(FileContext& context, const std::string& path, Workspace& workspace);

// Replaces the file by the workspace's five settings. A failure is not told: the settings are lost.
void IniFileWrite(FileContext& context, const std::string& path, const Workspace& workspace);

// Takes the five settings; those of a missing file are the defaults of SetDefaultParams, and
// FilterIndex stays. A file that can't be read gives the message "Para File Read (Open Error)" and
// the same.
void IniFileRead(FileContext& context, const std::string& path, Workspace& workspace);

// The same on images in memory.

// Throws Fault(EndOfFile) for a cut image; `block` is untouched then.
void ParsePara(std::span<const std::byte> image, std::int16_t skip_last_prop, ParaBlock& block);
ByteVector ParaImage(const ParaBlock& block, std::int16_t skip_last_prop);

// One number a line. A text that is no number sets the four AnalysisSettings to their defaults, in
// line 4 also FilterIndex to 0, and reading goes on; lines that are missing leave their values.
// FilterIndex is rounded half to even; a number too large for it counts as none.
void ParseIni(std::span<const std::byte> image, IniBlock& block);
ByteVector IniImage(const IniBlock& block);

}  // namespace dorvane
