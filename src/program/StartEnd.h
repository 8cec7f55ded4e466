// Start and end of the program: where its own files lie, what it takes from them at the start, and
// what it writes at the end.
#pragma once

#include <functional>
#include <string>

#include "program/Program.h"
#include "support/FileLayer.h"

namespace dorvane {

// All directories have their closing slash.

// Where the program's own files lie: the current directory if it holds "crystal.dat",
// "syspara_a.xpr" or "Dorvane.ini", else `dorvane` below the user's data directory of the desktop.
// A directory that can't be looked at holds none.
std::string ProgramDirectory(FileLayer& files, const std::string& current_directory,
                             const std::string& user_data_directory);

// Copies the files that ship with the program (the crystal library and the element table) into a
// program directory that exists and lacks them; files that are there stay. A failure is not told:
// whoever reads a file that is missing tells it. For the user's directory alone, at each start
// before the program reads.
void SeedProgramDirectory(FileLayer& files, const std::string& shipped_directory,
                          const std::string& directory);

// The start of a program that has just been made, whose constructor has cleared its tables and set
// up the windows: takes "syspara_a.xpr" and "Dorvane.ini" of Program::directory. File choices start
// in `start_directory`. Without its file the program starts with the message of ParaFileRead, the
// colours of SetStartValues and a calibration of 0. True when "syspara_a.xpr" has been read.
bool Form_Load(Program& program, const std::string& start_directory);
// The same from the directory "\UserData\".
bool Form_Load_Proc(Program& program);

// The end: asks about unsaved graphs, lets the other forms go (`unload_forms`), then writes both
// files into Program::directory. False when the user keeps the data: nothing else happens and the
// program goes on. True when the program ends, also after the message of a write that failed.
bool ExitProc(Program& program, const std::function<void()>& unload_forms = {});

}  // namespace dorvane
