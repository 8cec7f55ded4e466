#include "files/FormatTable.h"

#include <algorithm>
#include <array>

#include "files/FileDAC.h"
#include "files/FileDorvane.h"
#include "files/FileGSA.h"
#include "files/FileGenie.h"
#include "files/FileNPD.h"
#include "files/FileOrtec.h"
#include "files/SplitPath.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

using Operation = std::int16_t (*)(FileContext&, const std::string& path, const FileParts&);

// A reader or writer as a row of the tables below.
template <auto Take>
std::int16_t OnSpectrum(FileContext& context, const std::string& path, const FileParts& parts) {
  return Take(context, path, parts.block, parts.record);
}

// The same for a format that carries the peak table.
template <auto Take>
std::int16_t OnSpectrumWithPeaks(FileContext& context, const std::string& path,
                                 const FileParts& parts) {
  return Take(context, path, parts.block, parts.record, parts.peaks);
}

// The same for a format that carries the scale of angles.
template <auto Take>
std::int16_t OnSpectrumWithAngles(FileContext& context, const std::string& path,
                                  const FileParts& parts) {
  return Take(context, path, parts.block, parts.record, parts.angles);
}

struct FormatRow {
  std::string_view extension;
  Operation operation;
};

constexpr std::array kReaders{
    FormatRow{"npd", OnSpectrum<ReadNpdFile>},
    FormatRow{"cnf", OnSpectrum<ReadCnfFile>},
    FormatRow{"rpt", OnSpectrum<ReadRptFile>},
    FormatRow{"chn", OnSpectrum<ReadChnFile>},
    FormatRow{"xbm", OnSpectrum<ReadXbm>},
    FormatRow{"xba", OnSpectrumWithPeaks<ReadXba>},
    FormatRow{"raw", OnSpectrumWithAngles<ReadDacFile>},
};

constexpr std::array kWriters{
    FormatRow{"xta", OnSpectrum<WriteXta>},     FormatRow{"xba", OnSpectrumWithPeaks<WriteXba>},
    FormatRow{"csv", OnSpectrum<WriteCsv>},     FormatRow{"npd", OnSpectrum<WriteNpdFile>},
    FormatRow{"rpt", OnSpectrum<WriteRptFile>}, FormatRow{"xbm", OnSpectrum<WriteXbm>},
    FormatRow{"gsa", OnSpectrum<WriteGsaFile>},
};

bool IsSeriesNumber(std::string_view extension) {
  return !extension.empty() && std::all_of(extension.begin(), extension.end(),
                                           [](char c) { return c >= '0' && c <= '9'; });
}

Operation RowOf(std::span<const FormatRow> table, std::string_view extension) {
  const std::string lower = LowerAscii(extension);
  const auto row = std::find_if(table.begin(), table.end(),
                                [&](const FormatRow& r) { return r.extension == lower; });
  return row == table.end() ? nullptr : row->operation;
}

Operation ReaderOf(std::string_view extension) {
  return IsSeriesNumber(extension) ? OnSpectrum<ReadXbm> : RowOf(kReaders, extension);
}

std::int16_t Run(Operation operation, FileContext& context, const std::string& path,
                 const FileParts& parts) {
  return operation == nullptr ? kFalse : operation(context, path, parts);
}

}  // namespace

std::int16_t ReadByExtension(FileContext& context, const std::string& path,
                             const FileParts& parts) {
  return Run(ReaderOf(SplitPath(path).Ext), context, path, parts);
}

std::int16_t WriteByExtension(FileContext& context, const std::string& path,
                              const FileParts& parts) {
  return Run(RowOf(kWriters, SplitPath(path).Ext), context, path, parts);
}

bool CanRead(std::string_view extension) {
  return ReaderOf(extension) != nullptr;
}
bool CanWrite(std::string_view extension) {
  return RowOf(kWriters, extension) != nullptr;
}

std::string ReadableKinds() {
  std::string kinds;
  for (const FormatRow& row : kReaders) kinds.append(".").append(row.extension).append(", ");
  return kinds.substr(0, kinds.size() - 2) + " or a number";
}

std::vector<std::string> WritableExtensions() {
  std::vector<std::string> extensions;
  for (const FormatRow& row : kWriters) extensions.emplace_back(row.extension);
  return extensions;
}

}  // namespace dorvane
