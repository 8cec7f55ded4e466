// The range that shows all of the open spectra.
#pragma once

#include "program/Program.h"

namespace dorvane {

// Channels of the longest open spectrum; MaxCh where none is open.
int LongestSpectrum(const Workspace& workspace);

// Shows the channels of the longest open spectrum. MaxCh, which never falls, can be more.
void ShowOpenSpectra(Program& program);

// Whether the range is one that nobody has narrowed: all channels, or those of the longest open
// spectrum.
bool ShowsWholeRange(const Program& program);

}  // namespace dorvane
