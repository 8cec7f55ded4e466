// Reader of the crystal library "crystal.dat", a text in code page 932; see
// docs/formats/crystal.md.
#pragma once

#include <string>
#include <string_view>

#include "lattice/CrystalRec.h"
#include "support/FileLayer.h"

namespace dorvane {

// The library of a file image: ten free lines, the number of crystals, then the crystals. Fields
// are separated by commas or line ends (LF or CR LF), texts may be quoted, blank lines are no
// fields. Faults pass, each with the line on which reading stopped: EndOfFile for a cut file or an
// open list, NotANumber, Overflow (a number outside 16 bits where 16 bits are due), Subscript (a
// 32nd crystal, a 102nd line), BadArgument (a quoted text that does not end in its field).
CrystalLibrary ReadCrystalFile(std::string_view bytes);

// The library of the file at `path`. Faults name the path too; those of the file layer
// (FileNotFound, PermissionDenied, FileFailed) pass.
CrystalLibrary ReadCrystalFile(FileLayer& files, const std::string& path);

}  // namespace dorvane
