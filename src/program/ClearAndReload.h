// Starts over with the last file: everything goes, and the first file of the last selection comes
// back.
#pragma once

#include "program/Program.h"

namespace dorvane {

// Removes every graph with its peaks, each unsaved one asking its question, then reads the first
// file of the last selection into row 0. Without a selection the workspace stays empty.
void ClearAndReload(Program& program);

// "DelAll": the same after a question.
void AskAndClear(Program& program);

}  // namespace dorvane
