// A new energy calibration from lines of known energy: the table of lines, the fit of a straight
// line or a parabola, and where its coefficients go.
//
// The table counts channels from 1 as the peak report does, the fit takes their indices from 0, and
// the coefficients are then used with channel numbers again.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "processing/QuadFit.h"
#include "program/Program.h"

namespace dorvane {

// Name in the program directory.
constexpr const char* kCalibFileName = "Calib_Data.txt";

constexpr int kMostCalibPoints = 30;

// optCnst: "E=A+Bx" and "E=A+Bx+Cx^2".
enum class CalibForm : std::int16_t { Line = 0, Parabola = 1 };

// A row of the line table as the cells show it.
struct CalibRow {
  std::string channel;    // channel number with its fraction
  std::string energy;     // keV
  std::string character;  // name of the line
  std::string source;     // MsuName of the spectrum

  friend bool operator==(const CalibRow&, const CalibRow&) = default;
};

// What the calibration dialog holds: its table, the selected form and the boxes ImConst.
struct CalibTable {
  std::vector<CalibRow> rows;
  CalibForm form = CalibForm::Line;
  EgcCoef ImConst;  // A in keV, B in keV/channel, C in keV/channel^2; full values
};

// x: channel index, y: keV.
struct CalibPoints {
  std::vector<double> x;
  std::vector<double> y;
};

struct CalibFit {
  std::int16_t status = kNoPoints;   // kFitted, kNoPoints or kSingular; what follows is 0 then
  EgcCoef coefficients;              // A, B, C; C is 0 for the line
  EgcCoef errors;                    // standard errors; 0 without a degree of freedom
  std::vector<double> residuals_ev;  // known energy less the fitted one, by point
};

// The calibration that the dialog opens with, that of spectrum 0; its form by whether C is 0.
void DispKeisu(const Program& program, CalibTable& table);

// The text of a box of ImConst.
std::string CoefficientText(double coefficient);

// The first rows up to one with an empty cell (blanks count as empty), at most 30. Throws
// Fault(NotANumber), which names the row, for a cell of these that is no number.
CalibPoints PointsOf(std::span<const CalibRow> rows);

// The least squares of y on x. The line goes through LineFit, so that it holds for channel numbers;
// the parabola through QuadFit. Standard errors are estimated from the residuals. The line is
// singular with fewer than two different x.
// KEPT: the parabola holds for channel indices, and used with channel numbers it lies one channel
// beside its points.
CalibFit FitCalibration(const CalibPoints& points, CalibForm form);

// The energy of a fitted curve at a channel index, in keV: through the points for either form.
double FittedEnergy(double index, const EgcCoef& coefficients, CalibForm form);

// "Calculate": fits the points of the table into ImConst. Without points nothing changes; a
// singular fit sets ImConst(2) to 0 and keeps the others. Faults of PointsOf pass, with the table
// as it was.
CalibFit Calculate(CalibTable& table);

// "Update": Calculate, then ImConst becomes the default calibration, whatever the fit's status,
// and is stored with the table by SaveCalibData and in "syspara_a.xpr". Of the two files each is
// written also where the other can't be, which has been told then. Faults of PointsOf pass, with
// nothing done.
CalibFit UpdateCalibration(Program& program, CalibTable& table);

// Replaces "Calib_Data.txt" and tells its path: -1; "Open Error" and 0 where that fails.
std::int16_t SaveCalibData(Program& program, const CalibTable& table);
// Its text: the rows up to the last one with any text, and the coefficients.
std::string CalibDataText(const CalibTable& table);

// The memo of "Show": the formula with its coefficients.
std::string CalibMemo(const CalibTable& table);

// "Input Fit Center Value": the peak nearest to the cursor, to which it jumps, as channel number
// with four decimals and the MsuName of its spectrum; without a peak the channel of the cursor, and
// the source stays. The other cells stay.
void TakePeak(Program& program, CalibRow& row);

// "Delete Current Line": the rows below move up one, and an empty one comes in at the end. An index
// outside of the rows: nothing.
void DeleteCalibRow(std::vector<CalibRow>& rows, int index);

}  // namespace dorvane
