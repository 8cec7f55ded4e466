// The record of one element: its number, names, lines and absorption edge, found by number or
// symbol.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "forms/AtomSelection.h"
#include "forms/ControlArray.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "program/Program.h"
#include "support/ElementStore.h"

namespace dorvane {

// An energy of a record.
struct ElementEnergy {
  int kind = 0;  // 0..7, the place among the eight of the record
  double energy_kev = 0;
  std::string label;  // symbol, a blank, name of the field

  friend bool operator==(const ElementEnergy&, const ElementEnergy&) = default;
};

class frmElement : public Form {
 public:
  // What a search reports, in the order of the kinds; nothing where it found no record and has told
  // it in a box. A line without a value is left out.
  using Report = std::optional<std::vector<ElementEnergy>>;

  // All of them outlive the form.
  frmElement(Program& program, FormHost& host, ElementStore& store, const AtomSelTable& selections);

  // Opens the table in the program's directory if it isn't yet. False, after a message, where it
  // can't be opened; every search tries again.
  bool Form_Load();
  // Shows the form, with the record of an element unless `num` is 0.
  void Open(int num);

  // Searches by atomic number, shows the record and reports the energies of the element's selected
  // line kinds.
  Report FindByNum(int num);
  // The same for one line kind (0..7), selected or not.
  Report FindForGraph(int num, int kind);
  // The label of the energy that was reported last; empty until there is one.
  const std::string& Result() const { return lblResult.Caption(); }

  // A press of Enter in a box.
  void txtNumFind_Enter();
  void txtSymbFind_Enter();

  TextBox txtNumFind{controls_, "txtNumFind", "Find No"};
  TextBox txtSymbFind{controls_, "txtSymbFind", "Find Symbol"};
  TextBox txtNum{controls_, "txtNum", "No"};
  TextBox txtSymbol{controls_, "txtSymbol", "Symbol"};
  TextBox txtElement{controls_, "txtElement", "Element"};
  TextBox txtElementName{controls_, "txtElementName", "元素名"};
  ControlArray<TextBox> txtEnergy{controls_, "txtEnergy", kLineKinds};  // captions: their fields
  Label lblResult{controls_, "lblResult"};
  Button cmdCancel{controls_, "cmdCancel", "Cancel"};

 private:
  std::optional<ElementRec> Found(const std::string& criterion, std::optional<ElementRec> record);
  void ShowRecord(const ElementRec& record);
  std::optional<ElementRec> SearchNum(int num);
  Report ReportSelected(const std::optional<ElementRec>& record);
  void ReportLine(const ElementRec& record, int kind, std::vector<ElementEnergy>& energies);

  Program& program_;
  ElementStore& store_;
  const AtomSelTable& selections_;
};

}  // namespace dorvane
