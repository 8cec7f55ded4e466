#include "files/FilePara.h"

#include <optional>

#include "files/FieldImage.h"
#include "files/PropImage.h"
#include "files/TextLines.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr std::string_view kReadError = "Para File Read (Open Error)";
constexpr std::string_view kWriteError = "Para File Write (Open Error)";

// KEPT: two bytes that look like a version and are none: written as they are, skipped on reading.
constexpr std::string_view kMark = "00";

// Offsets in the image of a FitParamSet.
constexpr std::size_t kFuncTypeAt = 0;
constexpr std::size_t kSmoothKindAt = 2;
constexpr std::size_t kPeakThresAt = 4;
constexpr std::size_t kBackIntervalAt = 6;
constexpr std::size_t kBackTimesAt = 8;
constexpr std::size_t kTailAt = 10;

template <typename Visit, typename Settings>
void VisitFitParam(Visit visit, Settings& settings) {
  visit(kFuncTypeAt, settings.FuncType);
  visit(kSmoothKindAt, settings.SmoothKind);
  visit(kPeakThresAt, settings.PeakThres);
  visit(kBackIntervalAt, settings.BackInterval);
  visit(kBackTimesAt, settings.BackTimes);
  visit(kTailAt, settings.Tail);
}

ParaBlock ParaBlockOf(const Workspace& workspace) {
  return {.DefaultProp = workspace.DefaultProp,
          .ColorTbl = workspace.ColorTbl,
          .DisplayDefaults = workspace.DisplayDefaults,
          .FitParam = workspace.FitParam,
          .LastProp = workspace.LastProp};
}

void Take(const ParaBlock& block, Workspace& workspace) {
  workspace.DefaultProp = block.DefaultProp;
  workspace.ColorTbl = block.ColorTbl;
  workspace.DisplayDefaults = block.DisplayDefaults;
  workspace.FitParam = block.FitParam;
  workspace.LastProp = block.LastProp;
}

// One line of the ini file: a setting and its picture; without a setting it is FilterIndex.
struct IniLine {
  double AnalysisSettings::*setting;
  std::string_view picture;
};
constexpr std::array kIniLines{
    IniLine{&AnalysisSettings::BgCoef, "#0.00"},
    IniLine{&AnalysisSettings::PeakWidthCh, "#0.00"},
    IniLine{&AnalysisSettings::DacWavelength, "#0.000000"},
    IniLine{nullptr, ""},
    IniLine{&AnalysisSettings::JudgeRange, "#0.0000"},
};

std::optional<std::int16_t> ParseInt16(std::string_view text) {
  try {
    return Int16Of(text);
  } catch (const Fault&) {
    return std::nullopt;
  }
}

// KEPT: a text that is no number resets all settings, those of the lines before it, too.
void TakeLine(std::string_view text, const IniLine& line, IniBlock& block) {
  if (line.setting != nullptr) {
    const auto value = ParseNumber(text);
    if (!value) SetDefaultParams(block.Settings);
    if (value) block.Settings.*line.setting = *value;
  } else {
    const auto index = ParseInt16(text);
    if (!index) SetDefaultParams(block.Settings);
    block.FilterIndex = index.value_or(0);
  }
}

}  // namespace

void ParsePara(std::span<const std::byte> image, std::int16_t skip_last_prop, ParaBlock& block) {
  ByteReader reader(image);
  ParaBlock read = block;
  reader.Skip(kMark.size());
  ReadPropImage(reader, read.DefaultProp);
  reader.Int32s(read.ColorTbl.All());
  reader.Copy(read.DisplayDefaults);
  VisitFitParam(FieldReader(reader), read.FitParam);
  if (skip_last_prop == 0) ReadPropImage(reader, read.LastProp);
  block = read;
}

ByteVector ParaImage(const ParaBlock& block, std::int16_t skip_last_prop) {
  ByteWriter image;
  image.Text(kMark);
  WritePropImage(image, block.DefaultProp);
  image.Int32s(block.ColorTbl.All());
  image.Text({block.DisplayDefaults.data(), block.DisplayDefaults.size()});
  VisitFitParam(FieldWriter(image), block.FitParam);
  if (skip_last_prop == 0) WritePropImage(image, block.LastProp);
  return image.Take();
}

std::int16_t ParaFileWrite(FileContext& context, const std::string& path,
                           const Workspace& workspace) {
  return Guarded(context, kWriteError, [&] {
    ReplaceFile(context.files, path, ParaImage(ParaBlockOf(workspace), workspace.SkipLastProp));
    return kTrue;
  });
}

std::int16_t ParaFileRead(FileContext& context, const std::string& path, Workspace& workspace) {
  return Guarded(context, kReadError, [&] {
    ParaBlock block = ParaBlockOf(workspace);
    ParsePara(ReadFile(context.files, path), workspace.SkipLastProp, block);
    Take(block, workspace);
    return kTrue;
  });
}

void ParseIni(std::span<const std::byte> image, IniBlock& block) {
  LineReader lines(image);
  for (const IniLine& line : kIniLines) {
    std::string_view text;
    try {
      text = lines.Next();
    } catch (const Fault&) {  // fewer lines: those that are there count
      return;
    }
    TakeLine(text, line, block);
  }
}

ByteVector IniImage(const IniBlock& block) {
  LineWriter text;
  for (const IniLine& line : kIniLines) {
    if (line.setting != nullptr) {
      text.Line({Picture(block.Settings.*line.setting, line.picture)});
    } else {
      text.Line({" ", std::to_string(block.FilterIndex), " "});
    }
  }
  return text.Take();
}

void IniFileWrite(FileContext& context, const std::string& path, const Workspace& workspace) {
  try {
    ReplaceFile(context.files, path, IniImage({workspace.Settings, workspace.FilterIndex}));
  } catch (const Fault&) {  // the program's end doesn't wait for five settings
  }
}

void IniFileRead(FileContext& context, const std::string& path, Workspace& workspace) {
  IniBlock block{workspace.Settings, workspace.FilterIndex};
  const std::int16_t read = Guarded(context, kReadError, [&] {
    if (!context.files.Info(path)) return kFalse;
    ParseIni(ReadFile(context.files, path), block);
    return kTrue;
  });
  if (read == kFalse) SetDefaultParams(block.Settings);
  workspace.Settings = block.Settings;
  workspace.FilterIndex = block.FilterIndex;
}

}  // namespace dorvane
