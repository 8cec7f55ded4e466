#include "batch/ProgramFiles.h"

#include <filesystem>

#include "batch/BatchError.h"
#include "lattice/CrystalFile.h"
#include "program/LatticeRun.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

std::string ProgramFolder() {
  std::error_code failed;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failed);
  return failed ? std::string() : program.parent_path().string() + "/";
}

}  // namespace

std::string ProgramFile(FileLayer& files, const std::string& name) {
  for (const std::string& folder : {ProgramFolder(), std::string(DORVANE_DATA_DIR)}) {
    const std::string path = folder + name;
    if (files.Info(path)) return path;
  }
  throw UsageError("the program's file " + name + " is missing");
}

CrystalLibrary ReadLibrary(FileLayer& files, const std::string& path) {
  const std::string library = path.empty() ? ProgramFile(files, "crystal.dat") : path;
  try {
    return ReadCrystalFile(files, library);
  } catch (const Fault& fault) {
    throw UsageError("crystal library " + library + ": " + fault.what());
  }
}

int CrystalIndexOf(const CrystalLibrary& library, const std::string& name) {
  const int index = FindCrystal(library, name);
  if (index >= 0) return index;
  std::string names;
  for (int i = 0; i < library.CrystalCount && i < kMaxCrystals; ++i)
    names += " " + library.CrystalTable[i].Name;
  throw UsageError("no crystal \"" + name + "\" in the library; there are" + names);
}

}  // namespace dorvane
