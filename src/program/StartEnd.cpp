#include "program/StartEnd.h"

#include <algorithm>
#include <array>

#include "files/FilePara.h"
#include "files/SplitPath.h"
#include "support/ElementStore.h"

namespace dorvane {
namespace {

constexpr const char* kCrystalFileName = "crystal.dat";
constexpr const char* kUserFolder = "dorvane/";
constexpr const char* kUserData = "\\UserData\\";

constexpr std::array kProgramFiles{kCrystalFileName, kParaFileName, kIniFileName};
constexpr std::array kShippedFiles{kCrystalFileName, kElementFileName};

bool HoldsFile(FileLayer& files, const std::string& path) {
  try {
    const auto info = files.Info(path);
    return info && info->regular;
  } catch (const Fault&) {
    return false;
  }
}

void TakeParameters(Program& program) {
  Workspace& workspace = program.workspace;
  workspace.Spectra[0].Prop.EGC = workspace.DefaultProp.EGC;
  workspace.Spectra[0].Prop.TwoTheta = workspace.DefaultProp.TwoTheta;
  UseColors(program, workspace.ColorTbl);
  program.Listener().CalibrationShown();
}

bool Load(Program& program, const std::string& user_data_dir) {
  Workspace& workspace = program.workspace;
  // KEPT: nothing clears it again, so that the parameter file always ends before LastProp.
  workspace.SkipLastProp = 1;
  workspace.UserDataDir = user_data_dir;
  const PathParts parts = SplitPath(user_data_dir + "*.*");
  workspace.CurDrive = parts.Drive;
  workspace.CurDir = parts.Dir;

  FileContext files = program.FileAccess();
  const bool read = ParaFileRead(files, program.directory + kParaFileName, workspace) == kTrue;
  if (read) TakeParameters(program);
  IniFileRead(files, program.directory + kIniFileName, workspace);
  return read;
}

}  // namespace

std::string ProgramDirectory(FileLayer& files, const std::string& current_directory,
                             const std::string& user_data_directory) {
  const bool here = std::any_of(kProgramFiles.begin(), kProgramFiles.end(), [&](const char* name) {
    return HoldsFile(files, current_directory + name);
  });
  return here ? current_directory : user_data_directory + kUserFolder;
}

void SeedProgramDirectory(FileLayer& files, const std::string& shipped_directory,
                          const std::string& directory) {
  for (const std::string name : kShippedFiles) {
    try {
      if (files.Info(directory + name)) continue;
      ReplaceFile(files, directory + name, ReadFile(files, shipped_directory + name));
    } catch (const Fault&) {  // the reader that misses the file tells it
    }
  }
}

bool Form_Load(Program& program, const std::string& start_directory) {
  return Load(program, start_directory);
}

bool Form_Load_Proc(Program& program) {
  return Load(program, kUserData);
}

bool ExitProc(Program& program, const std::function<void()>& unload_forms) {
  if (ConfirmUnsaved(program.List()) != kFalse) return false;
  if (unload_forms) unload_forms();
  FileContext files = program.FileAccess();
  ParaFileWrite(files, program.directory + kParaFileName, program.workspace);
  IniFileWrite(files, program.directory + kIniFileName, program.workspace);
  return true;
}

}  // namespace dorvane
