// The least squares of a cell in wide arithmetic: orthogonal triangularisation by reflections (G.
// H. Golub, C. F. Van Loan, Matrix Computations, 4th ed. 2013, chapter 5), no normal equations.
#pragma once

#include <array>
#include <cmath>
#include <vector>

#include "lattice/CellGeometry.h"

namespace dorvane {

// A line with the d value of its planes, angstrom.
struct PlaneLine {
  int h, k, l;
  double d;
};

// Parameter of each metric coefficient, from 1 in the order of Metric6; 0 where symmetry makes it
// zero. By system: cubic, tetragonal, hexagonal, orthorhombic, monoclinic, triclinic.
inline constexpr int kParameterOf[6][6] = {{1, 1, 1, 0, 0, 0}, {1, 1, 2, 0, 0, 0},
                                           {1, 1, 2, 0, 0, 1}, {1, 2, 3, 0, 0, 0},
                                           {1, 2, 3, 0, 4, 0}, {1, 2, 3, 4, 5, 6}};
inline constexpr int kParameters[6] = {1, 2, 2, 3, 4, 6};

struct WideFit {
  std::vector<double> parameter;  // 1/angstrom^2
  std::vector<double> error;      // standard errors; zeros for as many lines as parameters
};

namespace wide {

using Row = std::vector<long double>;

// d^2 times the factor of each parameter in 1/d^2, and 1 behind them.
inline Row RowOf(int system, const PlaneLine& line) {
  const long double terms[6] = {1.0L * line.h * line.h, 1.0L * line.k * line.k,
                                1.0L * line.l * line.l, 1.0L * line.k * line.l,
                                1.0L * line.h * line.l, 1.0L * line.h * line.k};
  const auto parameters = static_cast<std::size_t>(kParameters[system]);
  Row row(parameters + 1);
  for (int j = 0; j < 6; ++j) {
    const int p = kParameterOf[system][j];
    if (p > 0) row[static_cast<std::size_t>(p - 1)] += terms[j] * line.d * line.d;
  }
  row[parameters] = 1;
  return row;
}

// Reflects the rows from `j` on, so that column j is zero below the diagonal.
inline void Reflect(std::vector<Row>& rows, std::size_t j) {
  Row mirror(rows.size());
  long double squares = 0;
  for (std::size_t i = j; i < rows.size(); ++i) {
    mirror[i] = rows[i][j];
    squares += mirror[i] * mirror[i];
  }
  mirror[j] += std::copysign(std::sqrt(squares), mirror[j]);
  long double norm = 0;
  for (const long double value : mirror) norm += value * value;
  for (std::size_t c = j; c < rows[j].size(); ++c) {
    long double product = 0;
    for (std::size_t i = j; i < rows.size(); ++i) product += mirror[i] * rows[i][c];
    for (std::size_t i = j; i < rows.size(); ++i) rows[i][c] -= 2 * product / norm * mirror[i];
  }
}

// Sum of the squares of column k of the inverse of the transposed triangle: the variance of
// parameter k for residuals of 1.
inline long double Variance(const std::vector<Row>& rows, std::size_t parameters, std::size_t k) {
  Row column(parameters);
  long double squares = 0;
  for (std::size_t i = 0; i < parameters; ++i) {
    long double value = i == k ? 1 : 0;
    for (std::size_t m = 0; m < i; ++m) value -= rows[m][i] * column[m];
    column[i] = value / rows[i][i];
    squares += column[i] * column[i];
  }
  return squares;
}

}  // namespace wide

// Minimises the residuals of d^2 * (1/d^2 of the cell) = 1, all of one weight.
inline WideFit FitWide(int system, const std::vector<PlaneLine>& lines) {
  std::vector<wide::Row> rows;
  for (const PlaneLine& line : lines) rows.push_back(wide::RowOf(system, line));
  const auto parameters = static_cast<std::size_t>(kParameters[system]);
  for (std::size_t j = 0; j < parameters; ++j) {
    if (j + 1 < rows.size()) wide::Reflect(rows, j);
  }
  WideFit fit{std::vector<double>(parameters), std::vector<double>(parameters)};
  wide::Row x(parameters);
  for (std::size_t j = parameters; j-- > 0;) {
    long double value = rows[j][parameters];
    for (std::size_t m = j + 1; m < parameters; ++m) value -= rows[j][m] * x[m];
    x[j] = value / rows[j][j];
    fit.parameter[j] = static_cast<double>(x[j]);
  }
  if (rows.size() == parameters) return fit;
  long double squares = 0;
  for (std::size_t i = parameters; i < rows.size(); ++i) {
    squares += rows[i][parameters] * rows[i][parameters];
  }
  const long double variance = squares / static_cast<long double>(rows.size() - parameters);
  for (std::size_t k = 0; k < parameters; ++k) {
    fit.error[k] = static_cast<double>(std::sqrt(variance * wide::Variance(rows, parameters, k)));
  }
  return fit;
}

inline Metric6 MetricOf(int system, const std::vector<double>& parameters) {
  Metric6 metric{};
  for (std::size_t j = 0; j < 6; ++j) {
    const int p = kParameterOf[system][j];
    if (p > 0) metric[j] = parameters[static_cast<std::size_t>(p - 1)];
  }
  return metric;
}

// Parameters of a cell of a system.
inline std::vector<double> ParametersOf(int system, const Cell6& cell) {
  const Metric6 metric = MetricOf(cell);
  std::vector<double> parameters(static_cast<std::size_t>(kParameters[system]));
  for (std::size_t j = 6; j-- > 0;) {
    const int p = kParameterOf[system][j];
    if (p > 0) parameters[static_cast<std::size_t>(p - 1)] = metric[j];
  }
  return parameters;
}

}  // namespace dorvane
