// Graph arithmetic: a curve of one or two graphs and two constants, stored as the first spectrum.
#pragma once

#include "program/Program.h"
#include "workspace/SpectrumRec.h"

namespace dorvane {

// DataNo of the spectrum that takes the result.
inline constexpr int kResultDataNo = 0;

// The operator between the terms that stands for no second term.
inline constexpr int kNoSecondTerm = 4;

// One term: a graph, by its DataNo, and its constant. Operators are those of GraphArithmetic.h.
struct ArithmeticTerm {
  int data_no = 0;
  int op = 0;
  double constant = 0;
};

// first op second.
struct GraphExpression {
  ArithmeticTerm first;
  int op = 0;
  ArithmeticTerm second;
};

// Results of the two terms, kept from one calculation to the next.
struct ArithmeticWork {
  ChannelBlock first;
  ChannelBlock second;
};

// Stores the result as the counts of spectrum 0; its properties and its peaks stay. The row that
// shows it is unsaved, and shown in colour 0 of the table, from then on. Where no row shows it,
// the counts are stored alone. Throws Fault(Overflow) where a result has no place in 32 bits and
// Fault(Subscript) for a DataNo outside 0..13: nothing is stored then.
void CalcSpect(Program& program, const GraphExpression& expression, ArithmeticWork& work);

}  // namespace dorvane
