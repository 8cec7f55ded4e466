// Files that belong to the program: beside it where it is installed, else in the source's data
// folder.
#pragma once

#include <string>

#include "lattice/CrystalRec.h"
#include "support/FileLayer.h"

namespace dorvane {

// Whole path of a file of the program; throws UsageError where there is none.
std::string ProgramFile(FileLayer& files, const std::string& name);

// The crystal library at `path`, or the program's own where that is empty. Throws UsageError when
// it can't be read.
CrystalLibrary ReadLibrary(FileLayer& files, const std::string& path);

// Index of a crystal of the library; throws UsageError, which lists the names, where there is none.
int CrystalIndexOf(const CrystalLibrary& library, const std::string& name);

}  // namespace dorvane
