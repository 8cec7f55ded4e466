// A gesture of a user in the lattice form: what it was, and what the form shows before and after
// it.
#pragma once

#include <cmath>
#include <string>

#include "forms/frmPeakCal.h"
#include "processing/Units.h"
#include "support/NumberText.h"

namespace dorvane {

// What the user did last.
struct LatticeGesture {
  enum class Kind { Other, Execute, Correct, DataSave };
  Kind kind = Kind::Other;
  Grid* grid = nullptr;  // in which a line may have been clicked in or out
  int row = 0;           // of the line; 0 where it isn't known
};

// All that the form shows, for comparison.
inline std::string ShownBy(frmPeakCal& form) {
  std::string shown;
  for (Control* control : form.Controls().All()) {
    if (const auto* box = dynamic_cast<TextBox*>(control)) shown += box->Text();
    if (const auto* list = dynamic_cast<ComboBox*>(control)) shown += list->Text();
    if (const auto* group = dynamic_cast<OptionGroup*>(control)) {
      shown += std::to_string(group->Index());
    }
    if (const auto* grid = dynamic_cast<Grid*>(control)) {
      for (int row = 1; row <= grid->MaxRows(); ++row) {
        for (int column = 1; column <= grid->Columns(); ++column) {
          const GridCell& cell = grid->Cell(row, column);
          shown += cell.text + (cell.checked ? "+" : "-") + (cell.greyed ? "g" : "");
        }
      }
    }
    shown += "|";
  }
  return shown;
}

// Whether a sample is chosen and the seeds, the angle, the temperature, the peaks and the cell that
// was calculated last are those of a measurement: then no calculation faults.
inline bool IsOrdinary(const frmPeakCal& form, const Program& program) {
  const auto within = [](const TextBox& box, double low, double high) {
    const auto value = ParseNumber(box.Text());
    return value && *value > low && *value < high;
  };
  bool ordinary = form.cmbElement.Index() >= 0 && within(form.txtTemp, -273, 3000) &&
                  within(form.txt2Theta, 0.5, 90);
  for (int k = 0; k < kCellConstants; ++k) {
    const bool length = k < 3;
    for (const TextBox* box : {&form.txtSeedConstant[k], &form.txtLatticeConstans[k]}) {
      const bool empty = box->Text().empty() && !box->Enabled();
      ordinary = ordinary && (empty || within(*box, length ? 1 : 60, length ? 30 : 130));
    }
  }
  // "Correct" has no angle for a cell that came out far too large.
  const std::string& length = form.txtLatticeLength[0].Text();
  const auto calculated = ParseNumber(length.substr(0, length.find('+')));
  const double sine = std::sin(DegToRad(ParseNumber(form.txt2Theta.Text()).value_or(0) / 2));
  const double seed = ParseNumber(form.txtSeedConstant[0].Text()).value_or(0);
  ordinary = ordinary && (!calculated || std::abs(*calculated * sine) < seed);
  const PeakTable& table = program.workspace.Peaks[form.Work().DataNo];
  for (int i = 0; i < table.Count; ++i) {
    ordinary = ordinary && std::isfinite(table.Peaks[i].Center) && table.Peaks[i].Center >= 0;
  }
  return ordinary;
}

}  // namespace dorvane
