// The list of graphs: rows are taken, moved, filled and removed here, by the numbers GrpNo and
// DataNo.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "support/Dialogs.h"
#include "workspace/ViewState.h"
#include "workspace/Workspace.h"
#include "workspace/WorkspaceListener.h"

namespace dorvane {

// What the list operations work on.
struct GraphList {
  Workspace& workspace;
  ViewState& view;
  WorkspaceListener& listener;
  Dialogs& dialogs;
};

// Kind of a graph by its title.
enum class GraphKind { Raw, Smooth, BackGraund, BackRemv, Fit };
// Raw for any title that is none of the four keywords, the empty one included; exact and
// case-sensitive.
GraphKind KindOf(std::string_view title);
// The measured graph behind a row: the row itself, else the first raw graph of the list; nullptr
// where none is open.
const GraphSlot* RawGraphOf(const Workspace& workspace, int grp_no);
// "RAW", "SMT", "BAK", "RMD" or "FIT".
const char* SuffixOf(GraphKind kind);

// DataNo of a row; GrpNo -1 means the current row. Faults (Subscript) for other numbers outside
// 0..9.
std::int16_t GetGraphDataNo(const GraphList& list, int grp_no);

// The lowest free DataNo. With take = -1 it is taken and GrpCount rises; otherwise nothing changes.
// None free: the message "GetGraphSpace: Notting Space!" and -1.
std::int16_t GetGraphSpace(const GraphList& list, int take);

// Moves the rows from GrpNo on by one place, towards the end for dir > 0, else towards the head.
// Returns -1, or 0 after one of the messages "ShiftGraph: Data Notting!", "ShiftGraph: List Over!",
// "ShiftGraph: List Under!".
std::int16_t ShiftGraph(const GraphList& list, int grp_no, int dir);

// Opens row 0 and takes a DataNo for it; -1 when there is no room (a message has been shown).
std::int16_t InsertGraph(const GraphList& list);

// Fills a row and shows it. An empty title keeps the old one.
void SetGraph(const GraphList& list, int win_no, int grp_no, int data_no, std::string_view title);

// Removes the graph, but not its row; asks first while any row is unsaved. Always -1, also when
// nothing happened. GrpNo >= 10 or an empty list: nothing.
std::int16_t ClearGrp(const GraphList& list, int grp_no);

// Removes the graph and closes the gap. The current row stays on its graph; when that was the last
// of the list and is gone, it falls on the one before.
void DeleteGraph(const GraphList& list, int grp_no);
// The same without the question, for whoever has asked it (ConfirmUnsaved).
void RemoveGraph(const GraphList& list, int grp_no);

// ClearGrp on every row, then no peak lines in either window. The result of the last ClearGrp.
std::int16_t ClearAllGrp(const GraphList& list);

// Asks about every unsaved row in turn. -1 when an answer was not Yes (keep the data), else 0.
std::int16_t ConfirmUnsaved(const GraphList& list);

// CurWin, but 0 in pile-up style (PileUpOn).
std::int16_t GetRealWinNo(const GraphList& list);
// The selected row of the real window, 0 when nothing is selected.
std::int16_t GetGrpNo(const GraphList& list);
// Taken DataNo less (GetGrpNo + 1), at least 0.
std::int16_t GetGrpNo2(const GraphList& list);

// Suffix of each row by its kind, "" for an empty row.
std::array<std::string, kRows> ResetSlotNames(const GraphList& list);

// Selector boxes and check boxes in step with the list.
void Add_cboGraphSel(const GraphList& list);
void Change_cboGrphSel(const GraphList& list, int win_no, int grp_no);
void ChgValue_chkGrp(const GraphList& list, int win_no, int grp_no, bool value);
// Recolours a graph of the list: row, curve and check box. An empty row: nothing.
void ChgStrColor_chkGrp(const GraphList& list, int win_no, int grp_no, Color color);
// The check boxes take their captions from the list anew.
void ChgAllCaption_chkGrp(const GraphList& list);

// Makes a window active: current row and spectrum, captions, unit axis. An area cursor of another
// window is cleared.
void ChangeActiveWin(const GraphList& list, int win_no);

// Whether a row holds a graph. Faults (Subscript) outside 0..9.
bool HoldsGraph(const Workspace& workspace, int grp_no);
// First row with that title in list order, -1 when none.
int FindRow(const Workspace& workspace, std::string_view title);
// The last row with a graph of a kind, which the "... Graph" menu entries select; -1 when none.
int LastRowOfKind(const Workspace& workspace, GraphKind kind);

}  // namespace dorvane
