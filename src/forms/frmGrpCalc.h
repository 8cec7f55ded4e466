// The dialog of graph arithmetic: one or two graphs, two constants and three operators.
#pragma once

#include <string>

#include "forms/ControlArray.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "program/CalcSpect.h"
#include "program/Program.h"

namespace dorvane {

// Modal. It stays open after a calculation; operators, constants and what the terms gave stay from
// one opening to the next.
class frmGrpCalc : public Form {
 public:
  static constexpr int kTerms = 2;

  // Both outlive the form.
  frmGrpCalc(Program& program, FormHost& host);

  // Lists the graphs anew and shows the form. A graph that was chosen stays so while it is in the
  // list, else the first one is.
  void Open();

  void cmbGraph_Click(int index);
  void cmbOpe2_Click();
  // Calculates; a fault is shown in a plain box, and nothing is stored. Nothing while a list of the
  // graphs has none chosen.
  void cmdCalc_Click();
  void cmdCancel_Click() { Hide(); }

  Label lblResult{controls_, "lblResult", "G1＝ "};
  // Items are "G" and the number of the graph: its DataNo + 1, so that "G1" is what the result goes
  // into. The tip of an item is the graph's title.
  ControlArray<ComboBox> cmbGraph{controls_, "cmbGraph", kTerms};
  ComboBox cmbOpe1{controls_, "cmbOpe1"};
  NumberBox ImNumber1{controls_, "ImNumber1", kPicture};
  ComboBox cmbOpe2{controls_, "cmbOpe2"};
  Frame fra2nd{controls_, "fra2nd"};
  ComboBox cmbOpe3{controls_, "cmbOpe3"};
  NumberBox ImNumber2{controls_, "ImNumber2", kPicture};
  Label lblHint{controls_, "lblHint"};  // which graph the result replaces
  Button cmdCalc{controls_, "cmdCalc", "Calc"};
  Button cmdCancel{controls_, "cmdCancel", "Close"};

 private:
  static constexpr const char* kPicture = "####0.00";

  void ListGraphs();
  std::string ResultHint() const;
  void EnableCalc();

  Program& program_;
  ArithmeticWork work_;
};

}  // namespace dorvane
