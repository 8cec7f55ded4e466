#include "program/LatticeLogFile.h"

#include <algorithm>
#include <utility>

#include "files/FileContext.h"
#include "support/Bytes.h"
#include "support/Fault.h"
#include "workspace/GraphList.h"

namespace dorvane {
namespace {

constexpr char kLogOpenError[] = "LatticeFit Temp File Open Error";
constexpr char kResultName[] = "Result.csv";
constexpr char kResultCaption[] = "Save Result";
constexpr char kResultFilter[] = "Result File (*.csv)|*.csv";
constexpr char kSummaryName[] = "LatticeFit.csv";
constexpr char kResultDirectory[] = "ResultDirectory";

bool IsLogMode(std::int16_t mode) {
  return mode == kFirstLog || mode == kSecondLog;
}

// Links are followed; what is no regular file could hold the program up.
int CreateLog(FileLayer& files, const std::string& path) {
  const auto info = files.Info(path);
  if (info && !info->regular) throw Fault(FaultCode::FileFailed);
  return files.Create(info ? info->real_path : files.LinkTarget(path), 0);
}

}  // namespace

LatticeLogFile::LatticeLogFile(FileLayer& files, Dialogs& dialogs, std::string directory)
    : files_(files), dialogs_(dialogs), directory_(std::move(directory)) {}

LatticeLogFile::~LatticeLogFile() {
  Close();
}

std::int16_t LatticeLogFile::OpenLatticeLog(std::int16_t mode) {
  Close();
  if (IsLogMode(mode))
    path_ = directory_ + (mode == kFirstLog ? "crystalfit.csv" : "crystalfit2.csv");
  try {
    file_ = CreateLog(files_, path_);
    log_failed_ = kFalse;
  } catch (const Fault&) {
    Fail();
  }
  return log_failed_;
}

void LatticeLogFile::Put(const LogRecords& records) {
  if (log_failed_ != kFalse || file_ < 0) return;
  try {
    files_.Write(file_, AsBytes(CsvText(records)));
  } catch (const Fault&) {
    Fail();
  }
}

void LatticeLogFile::LogEnd(const SpectrumRec& spectrum) {
  Put(dorvane::LogEnd(spectrum));
  if (file_ < 0) return;
  try {
    files_.Flush(file_);
    files_.Close(std::exchange(file_, -1));
  } catch (const Fault&) {
    Fail();
  }
}

void LatticeLogFile::SaveResultFile(const Workspace& workspace) {
  FileRequest request;
  request.file_name = ProposedResultName(workspace);
  request.filter = kResultFilter;
  request.overwrite_prompt = true;
  request.caption = kResultCaption;
  const auto choice = dialogs_.ChooseFileToSave(request);
  if (!choice) return;
  try {
    ReplaceFile(files_, choice->path, ReadFile(files_, path_));
  } catch (const Fault&) {
    dialogs_.Message(kOpenError);
  }
}

void LatticeLogFile::Fail() {
  log_failed_ = kTrue;
  Close();
  dialogs_.Message(kLogOpenError);
}

void LatticeLogFile::Close() {
  if (file_ < 0) return;
  try {
    files_.Close(std::exchange(file_, -1));
  } catch (const Fault&) {  // nothing more can be written
  }
}

std::string ProposedResultName(const Workspace& workspace) {
  const auto raw =
      std::find_if(workspace.Slots.begin(), workspace.Slots.end(),
                   [](const GraphSlot& slot) { return KindOf(slot.Title) == GraphKind::Raw; });
  if (raw == workspace.Slots.end()) return kResultName;
  return raw->Title.substr(0, raw->Title.find('.')) + "_" + kResultName;
}

std::string ResultDirectory(const SettingsStore& settings, const std::string& program_directory) {
  const std::vector<std::string> texts = settings.Texts(kResultDirectory);
  if (texts.empty() || texts.front().empty()) return program_directory;
  const std::string& directory = texts.front();
  return directory.back() == '/' ? directory : directory + "/";
}

void SetResultDirectory(SettingsStore& settings, const std::string& directory) {
  settings.SetTexts(kResultDirectory, {directory});
}

std::int16_t DataSave(FileLayer& files, Dialogs& dialogs, const std::string& directory,
                      const SummaryInput& input, std::string& tag) {
  tag = SummaryTag(input.sample.lattice_type, tag);
  const std::string text = CsvText(SummaryRecords(input, tag));
  try {
    ReplaceFile(files, directory + kSummaryName, AsBytes(text));
    return kTrue;
  } catch (const Fault&) {
    dialogs.Message(kOpenError);
    return kFalse;
  }
}

}  // namespace dorvane
