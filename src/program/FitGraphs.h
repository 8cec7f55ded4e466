// The graphs that end a fit: the background under the fitted peaks, and the spectrum less that
// background.
#pragma once

#include "program/Program.h"

namespace dorvane {

// "BackGraund" and "BackRemv" of a fitted graph, which is the current one: a background that is not
// there yet is estimated, and takes what the fit has found. FitMade is set. Without a graph in that
// row, without a graph "Fit" or without room: the message "Fit Failed". The titles are those of the
// first rows that have them.
void BuildFitGraphs(Program& program, int win_no, int grp_no);

// The same with the background as it is in the list, and none estimated; where "Fit Failed" is told
// it has taken what the fit has found all the same.
void NaxAreaFitBackGroundDataSet(Program& program, int win_no, int grp_no);

// Channels of the row's spectrum take what FitBack holds for them, the others stay; FitBack covers
// channels 0..4095 and is 0 where no peak was fitted. The row is shown as "BackGraund".
void NaxBackToGraph(Program& program, int row);

// Of channels 0..4095 of `destination`, those with a background above 0 become source less
// background, the others 0; channels behind them stay. Numbers are DataNo. The graph is shown as
// "BackRemv". Throws Fault(Overflow) for a difference that is no 32-bit number.
void NaxRemvToGraph(Program& program, int source, int background, int destination);

}  // namespace dorvane
