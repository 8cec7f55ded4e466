// The files of a lattice work: its log, the copy of the log that the user may keep, and the summary
// of "Data Save".
#pragma once

#include <cstdint>
#include <string>

#include "lattice/LatticeLog.h"
#include "support/Dialogs.h"
#include "support/FileLayer.h"
#include "support/SettingsStore.h"
#include "workspace/Workspace.h"

namespace dorvane {

// Modes of the log, each with a file of its own: "crystalfit.csv" and "crystalfit2.csv".
constexpr std::int16_t kFirstLog = 0;
constexpr std::int16_t kSecondLog = 1;

// The open log of one work. What has been put is in the file when Put returns, so that the
// narration outlives a program that dies.
class LatticeLogFile {
 public:
  // `directory` is where the program's own files lie, with its closing slash. Ports outlive the
  // log.
  LatticeLogFile(FileLayer& files, Dialogs& dialogs, std::string directory);
  LatticeLogFile(const LatticeLogFile&) = delete;
  LatticeLogFile& operator=(const LatticeLogFile&) = delete;
  // Closes the file as it is.
  ~LatticeLogFile();

  // Opens the log of a mode and empties it; a mode other than 0 and 1 keeps the file of before. 0,
  // or -1 behind a message, and the work goes on without a log.
  std::int16_t OpenLatticeLog(std::int16_t mode);

  // -1: there is no log, and every Put returns at once. A write that fails sets it behind one
  // message.
  std::int16_t LogFailed() const { return log_failed_; }

  void Put(const LogRecords& records);

  // Puts the last block, flushes to the disk and closes.
  void LogEnd(const SpectrumRec& spectrum);

  // Asks where to keep the log of the mode last opened, and copies it there as it lies on disk;
  // nothing after Cancel. "Open Error" where that fails. Called when the log is closed.
  // KEPT: it asks after a failed log, too, and copies what an earlier work has left.
  void SaveResultFile(const Workspace& workspace);

 private:
  void Fail();
  void Close();

  FileLayer& files_;
  Dialogs& dialogs_;
  std::string directory_;
  std::string path_;
  int file_ = -1;
  std::int16_t log_failed_ = 0;
};

// Name that SaveResultFile proposes: that of the first raw graph up to its first ".", "_" and
// "Result.csv". An empty row counts as a raw graph without a name; "Result.csv" alone where every
// row is a derived graph.
std::string ProposedResultName(const Workspace& workspace);

// Directory of the summary, with its closing slash: what SetResultDirectory has set, the program's
// directory before.
std::string ResultDirectory(const SettingsStore& settings, const std::string& program_directory);
void SetResultDirectory(SettingsStore& settings, const std::string& directory);

// Writes the summary "LatticeFit.csv" into a directory that exists, replacing it in one step: -1.
// The old file or none, "Open Error" and 0 where that fails. `tag` is the tag of the summary
// before, empty at first.
std::int16_t DataSave(FileLayer& files, Dialogs& dialogs, const std::string& directory,
                      const SummaryInput& input, std::string& tag);

}  // namespace dorvane
