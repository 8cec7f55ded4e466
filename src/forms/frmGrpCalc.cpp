#include "forms/frmGrpCalc.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "program/Commands.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

// In the order of the operators' numbers.
std::vector<std::string> Operators() {
  return {"+", "-", "*", "/"};
}
std::vector<std::string> OperatorsOfTerms() {
  return {"+", "-", "*", "/", "none"};
}

// KEPT: a graph is numbered by its spectrum, not by its place in the list: the result goes into the
// spectrum "G1", wherever that stands.
std::string ItemOf(const GraphSlot& slot) {
  return "G" + std::to_string(slot.DataNo + 1);
}

// The DataNo that an item stands for; nothing where none is chosen.
std::optional<int> DataNoOf(const ComboBox& graphs) {
  const std::string item = graphs.Text();
  if (item.empty()) return {};
  const auto number = ParseNumber(std::string_view(item).substr(1));
  if (!number) return {};
  return RoundToInt16(*number) - 1;
}

}  // namespace

frmGrpCalc::frmGrpCalc(Program& program, FormHost& host)
    : Form(host, "frmGrpCalc", "Graph Calucration"), program_(program) {
  for (ComboBox* operators : {&cmbOpe1, &cmbOpe3}) {
    operators->SetItems(Operators());
    operators->SetIndex(0);
  }
  cmbOpe2.SetItems(OperatorsOfTerms());
  cmbOpe2.SetIndex(0);
  for (int i = 0; i < kTerms; ++i) {
    cmbGraph[i].Click.Connect([this, i] { cmbGraph_Click(i); });
  }
  cmbOpe2.Click.Connect([this] { cmbOpe2_Click(); });
  cmdCalc.Click.Connect([this] { cmdCalc_Click(); });
  cmdCancel.Click.Connect([this] { cmdCancel_Click(); });
}

void frmGrpCalc::Open() {
  ListGraphs();
  lblHint.SetCaption(ResultHint());
  EnableCalc();
  ShowModal();
}

void frmGrpCalc::ListGraphs() {
  std::vector<std::string> items;
  std::vector<std::string> titles;
  for (const GraphSlot& slot : program_.workspace.Slots) {
    if (slot.State == kRowEmpty) continue;
    items.push_back(ItemOf(slot));
    titles.push_back(slot.Title);
  }
  for (int i = 0; i < kTerms; ++i) {
    const auto chosen = std::find(items.begin(), items.end(), cmbGraph[i].Text());
    const auto index = chosen == items.end() ? 0 : chosen - items.begin();
    cmbGraph[i].SetItems(items);
    cmbGraph[i].SetItemTips(titles);
    cmbGraph[i].SetIndex(static_cast<int>(index));
    cmbGraph_Click(i);
  }
}

std::string frmGrpCalc::ResultHint() const {
  if (cmbGraph[0].Items().empty()) return "Open a spectrum first.";
  for (const GraphSlot& slot : program_.workspace.Slots) {
    if (slot.State == kRowEmpty || slot.DataNo != kResultDataNo) continue;
    return "G1 is " + slot.Title + "; its counts are replaced.";
  }
  return "No graph of the list is G1: the result is not shown.";
}

void frmGrpCalc::EnableCalc() {
  cmdCalc.SetEnabled(DataNoOf(cmbGraph[0]) && DataNoOf(cmbGraph[1]));
}

void frmGrpCalc::cmbGraph_Click(int index) {
  const ComboBox& graphs = cmbGraph[index];
  const int chosen = graphs.Index();
  cmbGraph[index].SetTip(chosen < 0 ? "" : graphs.ItemTips().at(static_cast<std::size_t>(chosen)));
  EnableCalc();
}

void frmGrpCalc::cmbOpe2_Click() {
  const bool second = cmbOpe2.Index() != kNoSecondTerm;
  fra2nd.SetEnabled(second);
  cmbGraph[1].SetEnabled(second);
  cmbOpe3.SetEnabled(second);
  ImNumber2.SetEnabled(second);
}

void frmGrpCalc::cmdCalc_Click() {
  const auto first = DataNoOf(cmbGraph[0]);
  const auto second = DataNoOf(cmbGraph[1]);
  if (!first || !second) return;
  const GraphExpression expression{{*first, cmbOpe1.Index(), ImNumber1.Value()},
                                   cmbOpe2.Index(),
                                   {*second, cmbOpe3.Index(), ImNumber2.Value()}};
  RunGuarded(program_, [&](Program& program) { CalcSpect(program, expression, work_); });
}

}  // namespace dorvane
