#include "lattice/SolveNormal.h"

#include <cmath>
#include <utility>

#include "lattice/Float32.h"

namespace dorvane {
namespace {

using Square = Fixed<Fixed<float, 1, kMetricSlots>, 1, kMetricSlots>;

Square Identity(int n) {
  Square one;
  for (int i = 1; i <= n; ++i) one[i][i] = 1.0f;
  return one;
}

// N(k, i) = sum over rows j of A(j, i) * A(j, k)
Square NormalMatrix(int n, int n_rows, const LineMatrix& A) {
  Square normal;
  for (int i = 1; i <= n; ++i) {
    for (int k = 1; k <= i; ++k) {
      float sum = 0.0f;
      for (int j = 1; j <= n_rows; ++j) sum += A[j][i] * A[j][k];
      normal[k][i] = Finite32(sum);
      normal[i][k] = sum;
    }
  }
  return normal;
}

// Row of the largest absolute value in column i at or below the diagonal, the first of equal ones.
int PivotRow(const Square& normal, int n, int i) {
  int row = i;
  for (int m = i + 1; m <= n; ++m) {
    if (std::fabs(normal[m][i]) > std::fabs(normal[row][i])) row = m;
  }
  return row;
}

// Brings `normal` to upper triangular form, with the same row operations on `inverse`.
bool Eliminate(float eps, int n, Square& normal, Square& inverse) {
  for (int i = 1; i < n; ++i) {
    const int pivot = PivotRow(normal, n, i);
    if (std::fabs(normal[pivot][i]) <= eps) return false;
    if (pivot != i) {
      std::swap(normal[pivot], normal[i]);
      std::swap(inverse[pivot], inverse[i]);
    }
    for (int m = i + 1; m <= n; ++m) {
      const float factor = normal[m][i] / normal[i][i];
      for (int k = i; k <= n; ++k) normal[m][k] -= factor * normal[i][k];
      for (int k = 1; k <= n; ++k) inverse[m][k] -= factor * inverse[i][k];
    }
  }
  return std::fabs(normal[n][n]) > eps;
}

void BackSubstitute(int n, const Square& upper, Square& inverse) {
  for (int column = 1; column <= n; ++column) {
    for (int i = n; i >= 1; --i) {
      float value = inverse[i][column];
      for (int k = i + 1; k <= n; ++k) value -= upper[i][k] * inverse[k][column];
      inverse[i][column] = Finite32(value / upper[i][i]);
    }
  }
}

// sum over rows of (y - A x)^2 / degrees of freedom
float ResidualVariance(int n, int n_rows, const LineVector& y, const LineMatrix& A,
                       const CellVector& x) {
  float sum = 0.0f;
  for (int j = 1; j <= n_rows; ++j) {
    float calculated = 0.0f;
    for (int k = 1; k <= n; ++k) calculated += A[j][k] * x[k];
    const float residual = y[j] - calculated;
    sum += residual * residual;
  }
  return Finite32(sum / static_cast<float>(n_rows - n));
}

}  // namespace

bool SolveNormal(float eps, int n_param, int n_rows, const LineVector& y, const LineMatrix& A,
                 CellVector& x, CellVector& sigma) {
  Fixed<float, 1, kMetricSlots> b;
  for (int i = 1; i <= n_param; ++i) {
    for (int j = 1; j <= n_rows; ++j) b[i] += y[j] * A[j][i];
  }
  Square normal = NormalMatrix(n_param, n_rows, A);
  Square inverse = Identity(n_param);
  if (n_param == 1) {
    inverse[1][1] = Divide32(1.0f, normal[1][1]);
  } else {
    if (!Eliminate(eps, n_param, normal, inverse)) return false;
    BackSubstitute(n_param, normal, inverse);
  }
  for (int i = 1; i <= n_param; ++i) {
    float sum = 0.0f;
    for (int k = 1; k <= n_param; ++k) sum += inverse[i][k] * b[k];
    x[i] = Finite32(sum);
  }
  const bool has_freedom = n_rows > n_param;
  const float variance = has_freedom ? ResidualVariance(n_param, n_rows, y, A, x) : 0.0f;
  for (int k = 1; k <= n_param; ++k) {
    sigma[k] = has_freedom ? Root32(std::fabs(variance * inverse[k][k])) : 0.0f;
  }
  return true;
}

}  // namespace dorvane
