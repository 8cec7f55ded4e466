#include "program/EnergyCalibration.h"

#include <algorithm>
#include <cmath>

#include "files/FilePara.h"
#include "processing/Calc.h"
#include "program/Cursor.h"
#include "program/View.h"
#include "support/CodePage.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr double kEvPerKev = 1000;
constexpr const char* kLineEnd = "\r\n";
constexpr const char* kSavedText = "Parameter saved as ";

bool IsEmpty(const std::string& cell) {
  return Trim(cell).empty();
}

double NumberOfCell(const std::string& cell, std::size_t row) {
  const auto number = ParseNumber(cell);
  if (!number) {
    throw Fault(FaultCode::NotANumber, "row " + std::to_string(row + 1) + ", \"" + cell + "\"");
  }
  return *number;
}

// Standard errors of a line for channel numbers n = x + 1, where the points have unit variance:
// of A sqrt(1/m + mean(n)^2 / S), of B sqrt(1 / S), with S the sum of (n - mean(n))^2.
void LineErrors(std::span<const double> x, EgcCoef& errors) {
  const auto points = static_cast<double>(x.size());
  double mean = 0;
  for (const double index : x) mean += (index + 1) / points;
  double spread = 0;
  for (const double index : x) spread += (index + 1 - mean) * (index + 1 - mean);
  errors[0] = std::sqrt(1 / points + mean * mean / spread);
  errors[1] = std::sqrt(1 / spread);
}

bool AllEqual(std::span<const double> x) {
  return std::all_of(x.begin(), x.end(), [&](double value) { return value == x.front(); });
}

// With errors for unit variance.
CalibFit FitLine(const CalibPoints& points) {
  CalibFit fit;
  if (points.x.empty()) return fit;
  fit.status = kSingular;
  // The determinant of equal abscissae can miss 0 by its rounding.
  if (LineDeterminant(points.x) == 0 || AllEqual(points.x)) return fit;
  const LineCoef line = LineFit(points.x, points.y);
  if (!std::isfinite(line[0]) || !std::isfinite(line[1])) return fit;
  fit.status = kFitted;
  fit.coefficients[0] = line[0];
  fit.coefficients[1] = line[1];
  LineErrors(points.x, fit.errors);
  return fit;
}

CalibFit FitParabola(const CalibPoints& points) {
  const QuadFitResult parabola = QuadFit(points.x, points.y);
  CalibFit fit;
  fit.status = parabola.status;
  std::copy(parabola.coefficients.begin(), parabola.coefficients.end(), fit.coefficients.begin());
  std::copy(parabola.unit_errors.begin(), parabola.unit_errors.end(), fit.errors.begin());
  return fit;
}

std::string MemoNumber(double coefficient) {
  return Picture(coefficient, "0.####e+000");
}

}  // namespace

void DispKeisu(const Program& program, CalibTable& table) {
  table.ImConst = program.workspace.Spectra[0].Prop.EGC;
  table.form = table.ImConst[2] == 0 ? CalibForm::Line : CalibForm::Parabola;
}

std::string CoefficientText(double coefficient) {
  return Picture(coefficient, "##,###,##0.000000");
}

CalibPoints PointsOf(std::span<const CalibRow> rows) {
  CalibPoints points;
  const std::size_t most = std::min<std::size_t>(rows.size(), kMostCalibPoints);
  for (std::size_t r = 0; r < most; ++r) {
    if (IsEmpty(rows[r].channel) || IsEmpty(rows[r].energy)) break;
    points.x.push_back(NumberOfCell(rows[r].channel, r) - 1);
    points.y.push_back(NumberOfCell(rows[r].energy, r));
  }
  return points;
}

double FittedEnergy(double index, const EgcCoef& coefficients, CalibForm form) {
  if (form == CalibForm::Line) return coefficients[0] + coefficients[1] * (index + 1);
  return coefficients[0] + coefficients[1] * index + coefficients[2] * index * index;
}

CalibFit FitCalibration(const CalibPoints& points, CalibForm form) {
  const bool line = form == CalibForm::Line;
  CalibFit fit = line ? FitLine(points) : FitParabola(points);
  if (fit.status != kFitted) return fit;
  double squares = 0;
  for (std::size_t i = 0; i < points.x.size(); ++i) {
    const double residual = points.y[i] - FittedEnergy(points.x[i], fit.coefficients, form);
    squares += residual * residual;
    fit.residuals_ev.push_back(kEvPerKev * residual);
  }
  const auto parameters = line ? std::size_t{2} : std::size_t{3};
  const std::size_t freedom = points.x.size() - parameters;
  const double deviation = freedom == 0 ? 0 : std::sqrt(squares / static_cast<double>(freedom));
  for (double& error : fit.errors) error *= deviation;
  return fit;
}

CalibFit Calculate(CalibTable& table) {
  CalibFit fit = FitCalibration(PointsOf(table.rows), table.form);
  if (fit.status == kNoPoints) return fit;
  table.ImConst[2] = 0;
  if (fit.status == kFitted) table.ImConst = fit.coefficients;
  return fit;
}

CalibFit UpdateCalibration(Program& program, CalibTable& table) {
  CalibFit fit = Calculate(table);
  program.workspace.DefaultProp.EGC = table.ImConst;
  SetEGCParam(program, 0);
  program.Listener().UnitAxisChanged();
  program.Listener().CursorMoved();
  SaveCalibData(program, table);
  FileContext files = program.FileAccess();
  ParaFileWrite(files, program.directory + kParaFileName, program.workspace);
  return fit;
}

std::string CalibDataText(const CalibTable& table) {
  const auto is_blank = [](const CalibRow& row) { return row == CalibRow{}; };
  const auto last = std::find_if_not(table.rows.rbegin(), table.rows.rend(), is_blank).base();
  std::string text;
  const auto put = [&](const std::string& line) { text += line + kLineEnd; };
  for (auto row = table.rows.begin(); row != last; ++row) {
    std::string line;
    for (const std::string& cell : {row->channel, row->energy, row->character, row->source}) {
      line += cell + ",  ";
    }
    put(line);
    put(" ");
  }
  const bool parabola = table.form == CalibForm::Parabola;
  put(parabola ? "E = A + Bx + Cx^2" : "E = A + Bx");
  put(" ");
  for (int j = 0; j < (parabola ? 3 : 2); ++j) put(CoefficientText(table.ImConst[j]));
  return text;
}

std::int16_t SaveCalibData(Program& program, const CalibTable& table) {
  const std::string path = program.directory + kCalibFileName;
  FileContext context = program.FileAccess();
  return Guarded(context, kOpenError, [&] {
    ReplaceFile(context.files, path, AsBytes(ToCodePage(CalibDataText(table))));
    context.dialogs.Message(kSavedText + path);
    return kTrue;
  });
}

std::string CalibMemo(const CalibTable& table) {
  const EgcCoef& c = table.ImConst;
  std::string memo = "Energy(keV) = (" + MemoNumber(c[0]) + ") + (" + MemoNumber(c[1]) + ")*Ch";
  if (table.form == CalibForm::Parabola) memo += " + (" + MemoNumber(c[2]) + ")*Ch^2";
  return memo;
}

void TakePeak(Program& program, CalibRow& row) {
  const double center = CsrChannel(program);
  if (center >= 0) {
    row.channel = Picture(center + 1, "0.0000");
    row.source = program.workspace.Spectra[program.view.DataNo].MsuName.Text();
  } else {
    row.channel = std::to_string(program.view.CursorCh + 1);
  }
}

void DeleteCalibRow(std::vector<CalibRow>& rows, int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= rows.size()) return;
  rows.erase(rows.begin() + index);
  rows.emplace_back();
}

}  // namespace dorvane
