// From a chosen file name to a graph, and from the current graph to a file: readers and writers by
// extension.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "program/Program.h"

namespace dorvane {

// Filter texts of the file dialogs.
extern const std::string_view kOpenFilter;
extern const std::string_view kSaveFilter;

constexpr int kMostFilesAtOnce = 10;

// Removes every graph, asking about the unsaved ones, then asks for files and reads them. A
// cancelled choice leaves an empty workspace.
void LoadData(Program& program);
// The same with files that are already chosen, as dropped ones are.
void LoadData(Program& program, const std::vector<std::string>& paths);

// Asks for files and reads at most ten of them into rows 0.. of window 0, without removing anything
// first.
void FileLoad(Program& program);

// Reads one file into a new DataNo and puts it in a row. -1, or 0 after a failure.
// KEPT: a failed read leaves its DataNo taken until the program ends.
std::int16_t ReadGraph(Program& program, int win_no, int grp_no, const std::string& path);

// Saves the current graph by the extension that the user chooses.
void FileSave(Program& program);
// Saves the current graph under a path; the writer asks before it replaces. -1 when written.
std::int16_t SaveGraphAs(Program& program, const std::string& path);

// The name that a save proposes: the raw graph's title before its first "." and the suffix of the
// current row's kind, "abc_FIT"; no suffix where there is no raw title.
std::string ProposedName(const Program& program);

}  // namespace dorvane
