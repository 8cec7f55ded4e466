#include "program/CalcSpect.h"

#include "processing/GraphArithmetic.h"
#include "program/View.h"

namespace dorvane {
namespace {

void ShowResult(Program& program) {
  Workspace& workspace = program.workspace;
  for (int row = 0; row < kRows; ++row) {
    GraphSlot& slot = workspace.Slots[row];
    if (slot.State == kRowEmpty || slot.DataNo != kResultDataNo) continue;
    slot.State = kRowUnsaved;
    slot.Disp = kTrue;
    program.Listener().SpectrumShown(slot.WinNo, kResultDataNo);
    ChgStrColor_chkGrp(program.List(), slot.WinNo, row, workspace.ColorTbl[kResultDataNo]);
  }
  if (program.view.AutoScale != kFalse) {
    AutoScaleY(program, GetRealWinNo(program.List()), program.view.DataNo);
  }
  program.Listener().CursorMoved();
}

}  // namespace

// Worked out aside, so that a fault leaves everything as it was.
void CalcSpect(Program& program, const GraphExpression& expression, ArithmeticWork& work) {
  const auto& channels = program.workspace.Channels;
  const ArithmeticTerm& first = expression.first;
  const ArithmeticTerm& second = expression.second;
  ChannelBlock result = channels[kResultDataNo];
  if (expression.op == kNoSecondTerm) {
    CalcConst(first.op, channels[first.data_no], first.constant, result);
  } else {
    ArithmeticWork next = work;
    CalcConst(first.op, channels[first.data_no], first.constant, next.first);
    CalcConst(second.op, channels[second.data_no], second.constant, next.second);
    CalcGraphs(expression.op, next.first, next.second, result);
    work = next;
  }
  program.workspace.Channels[kResultDataNo] = result;
  ShowResult(program);
}

}  // namespace dorvane
