// The writers of spectra and of the program's own files, in every way that a save can go wrong.
#include "files/FileDorvane.h"
#include "files/FileGSA.h"
#include "files/FileGenie.h"
#include "files/FileNPD.h"
#include "files/FilePara.h"
#include "files/Samples.h"
#include "support/WriterChecks.h"

namespace dorvane {
namespace {

constexpr int kChannels = 100;

// A writer of the sample spectrum; `image` makes what it writes.
template <typename Write, typename Image>
WriterCase SpectrumWriter(const std::string& name, Write write, Image image) {
  WriterCase writer;
  writer.name = name;
  writer.write = [write](FileLayer& files, Dialogs& dialogs, const std::string& path) {
    std::int16_t last_data_type = 0;
    FileContext context{files, dialogs, last_data_type};
    SpectrumRec record = SampleRecord();
    return write(context, path, SampleBlock(kChannels), record);
  };
  writer.image = AsText(image(SampleBlock(kChannels), SampleRecord()));
  return writer;
}

std::unique_ptr<Workspace> SampleWorkspace() {
  auto workspace = std::make_unique<Workspace>();
  workspace->DefaultProp = SampleProp();
  workspace->Settings = {0.25, 18.5, 0.4123, 0.015};
  return workspace;
}

WriterCase ParaWriter() {
  const auto write = [](FileLayer& files, Dialogs& dialogs, const std::string& path) {
    std::int16_t last_data_type = 0;
    FileContext context{files, dialogs, last_data_type};
    return ParaFileWrite(context, path, *SampleWorkspace());
  };
  const auto workspace = SampleWorkspace();
  ParaBlock block;
  block.DefaultProp = workspace->DefaultProp;
  block.ColorTbl = workspace->ColorTbl;
  block.DisplayDefaults = workspace->DisplayDefaults;
  block.FitParam = workspace->FitParam;
  block.LastProp = workspace->LastProp;
  const std::string message = "Para File Write (Open Error)";
  return {"para", write, std::string(AsText(ParaImage(block, workspace->SkipLastProp))), message,
          message};
}

// What it can't write it doesn't tell.
WriterCase IniWriter() {
  const auto write = [](FileLayer& files, Dialogs& dialogs,
                        const std::string& path) -> std::optional<std::int16_t> {
    std::int16_t last_data_type = 0;
    FileContext context{files, dialogs, last_data_type};
    IniFileWrite(context, path, *SampleWorkspace());
    return {};
  };
  const auto workspace = SampleWorkspace();
  const ByteVector image = IniImage({workspace->Settings, workspace->FilterIndex});
  return {"ini", write, std::string(AsText(image)), std::nullopt, std::nullopt};
}

std::vector<WriterCase> Writers() {
  WriterCase xbm = SpectrumWriter("xbm", WriteXbm, XbmImage);
  xbm.opening_passes = true;
  xbm.keeps_old_tail = true;
  WriterCase xba = SpectrumWriter(
      "xba",
      [](FileContext& context, const std::string& path, const ChannelBlock& block,
         const SpectrumRec& record) {
        return WriteXba(context, path, block, record, SamplePeaks(3));
      },
      [](const ChannelBlock& block, const SpectrumRec& record) {
        return XbaImage(block, record, SamplePeaks(3));
      });
  xba.keeps_old_tail = true;
  WriterCase csv = SpectrumWriter("csv", WriteCsv, CsvImage);
  csv.open_message = csv.message = "CSV File Write Error";
  WriterCase rpt = SpectrumWriter("rpt", WriteRptFile, RptImage);
  rpt.message = "File Error";
  WriterCase gsa = SpectrumWriter("gsa", WriteGsaFile, GsaImage);
  gsa.message = "File Write Error";
  return {xbm,
          xba,
          SpectrumWriter("xta", WriteXta, XtaImage),
          csv,
          SpectrumWriter("npd", WriteNpdFile, NpdImage),
          rpt,
          gsa,
          ParaWriter(),
          IniWriter()};
}

INSTANTIATE_TEST_SUITE_P(Of, WriterTest, testing::ValuesIn(Writers()), NameOfWriter);
INSTANTIATE_TEST_SUITE_P(Of, NamedWriterTest, testing::ValuesIn(Writers()), NameOfWriter);

}  // namespace
}  // namespace dorvane
