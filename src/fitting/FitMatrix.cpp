#include "fitting/FitMatrix.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr double kLeastRemainingLength = 1e-10;

constexpr std::size_t kSideBySide = 4;

// One sum alone waits for its own additions; four at once fill the time.
void SumSideBySide(const std::array<ColumnPair, kSideBySide>& pairs, std::size_t rows,
                   std::array<double, kSideBySide>& sums) {
  const auto [p0, p1, p2, p3] = pairs;
  double sum0 = 0, sum1 = 0, sum2 = 0, sum3 = 0;
  for (std::size_t i = 0; i < rows; ++i) {
    sum0 += p0.a[i] * p0.b[i];
    sum1 += p1.a[i] * p1.b[i];
    sum2 += p2.a[i] * p2.b[i];
    sum3 += p3.a[i] * p3.b[i];
  }
  sums = {sum0, sum1, sum2, sum3};
}

// Where the pivot of one elimination step was found.
struct PivotPlace {
  std::size_t row;
  std::size_t column;
};

// The element of greatest magnitude at or below and right of (k, k). Among equal ones the last; NaN
// is taken, so that the caller sees it.
PivotPlace FindPivot(const SquareMatrix& a, std::size_t k, std::size_t m) {
  PivotPlace place = {k, k};
  double big = 0;
  for (std::size_t i = k; i < m; ++i) {
    for (std::size_t j = k; j < m; ++j) {
      const double size = std::abs(a[i][j]);
      if (big > size) continue;
      big = size;
      place = {i, j};
    }
  }
  return place;
}

void ExchangeRows(SquareMatrix& a, std::size_t k, std::size_t other, std::size_t m) {
  for (std::size_t j = 0; j < m; ++j) a[other][j] = -std::exchange(a[k][j], a[other][j]);
}

void ExchangeColumns(SquareMatrix& a, std::size_t k, std::size_t other, std::size_t m) {
  for (std::size_t j = 0; j < m; ++j) a[j][other] = -std::exchange(a[j][k], a[j][other]);
}

void Eliminate(SquareMatrix& a, std::size_t k, std::size_t m) {
  double* const pivot_row = a[k].data();
  const double pivot = pivot_row[k];
  for (std::size_t i = 0; i < m; ++i) {
    if (i == k) continue;
    double* const row = a[i].data();
    const double factor = -row[k] / pivot;
    FillColumn(row, m, [=](std::size_t j) { return factor * pivot_row[j] + row[j]; });
    row[k] = factor;
  }
  FillColumn(pivot_row, m, [=](std::size_t j) { return pivot_row[j] / pivot; });
  pivot_row[k] = 1 / pivot;
}

// The interchanges in reverse, rows and columns having changed their parts.
void UndoExchanges(SquareMatrix& a, std::span<const PivotPlace> places) {
  const std::size_t m = places.size();
  for (std::size_t k = m; k-- > 0;) {
    if (const std::size_t row = places[k].row; row > k) {
      for (std::size_t j = 0; j < m; ++j) a[j][row] = std::exchange(a[j][k], -a[j][row]);
    }
    if (const std::size_t column = places[k].column; column > k) {
      for (std::size_t j = 0; j < m; ++j) a[column][j] = std::exchange(a[k][j], -a[column][j]);
    }
  }
}

}  // namespace

void InnerProducts(std::span<const ColumnPair> pairs, std::size_t rows, std::span<double> sums) {
  for (std::size_t done = 0; done < pairs.size(); done += kSideBySide) {
    const std::size_t count = std::min(kSideBySide, pairs.size() - done);
    std::array<ColumnPair, kSideBySide> block;
    std::array<double, kSideBySide> block_sums;
    for (std::size_t w = 0; w < kSideBySide; ++w) block[w] = pairs[done + std::min(w, count - 1)];
    SumSideBySide(block, rows, block_sums);
    std::copy_n(block_sums.begin(), count, sums.begin() + static_cast<std::ptrdiff_t>(done));
  }
}

std::size_t GramSchmidtQR(FitMatrix& q, std::size_t rows, std::size_t m, SquareMatrix& r,
                          Pivots& pivots) {
  std::array<double, FitMatrix::kColumns> first_length, sums;
  std::array<ColumnPair, FitMatrix::kColumns> pairs;
  first_length.fill(1);
  for (std::size_t j = 0; j < m; ++j) {
    pivots[j] = j;
    r[j].fill(0);
  }
  for (std::size_t k = 0; k < m; ++k) {
    for (std::size_t j = k; j < m; ++j) pairs[j] = {q.Column(pivots[j]), q.Column(pivots[j])};
    InnerProducts(std::span(pairs).subspan(k, m - k), rows, std::span(sums).subspan(k));
    double best = 0;
    double best_length = 0;
    std::size_t best_place = k;
    for (std::size_t j = k; j < m; ++j) {
      const double length = std::sqrt(sums[j]);
      const double ratio = Divide(length, first_length[pivots[j]]);
      if (k == 0) first_length[pivots[j]] = length;
      if (k == m - 1 || best < ratio) {
        best = ratio;
        best_length = length;
        best_place = j;
      }
    }
    std::swap(pivots[k], pivots[best_place]);
    r[k][pivots[k]] = best_length;
    if (best <= kLeastRemainingLength) {
      for (std::size_t j = k; j < m; ++j) {
        for (std::size_t i = 0; i < m; ++i) r[i][pivots[j]] = 0;
      }
      return k;
    }
    double* const unit = q.Column(pivots[k]);
    FillColumn(unit, rows, [=](std::size_t i) { return unit[i] / best_length; });
    for (std::size_t j = k + 1; j < m; ++j) pairs[j] = {q.Column(pivots[j]), unit};
    InnerProducts(std::span(pairs).subspan(k + 1, m - k - 1), rows, std::span(sums).subspan(k + 1));
    for (std::size_t j = k + 1; j < m; ++j) {
      double* const other = q.Column(pivots[j]);
      const double product = sums[j];
      r[k][pivots[j]] = product;
      FillColumn(other, rows, [=](std::size_t i) { return other[i] - product * unit[i]; });
    }
  }
  return m;
}

double MatInverse(SquareMatrix& a, std::size_t m) {
  std::array<PivotPlace, FitMatrix::kColumns> places;
  double det = 1;
  for (std::size_t k = 0; k < m; ++k) {
    places[k] = FindPivot(a, k, m);
    const double big = Finite(a[places[k].row][places[k].column]);
    if (big == 0) return 0;
    if (places[k].row != k) ExchangeRows(a, k, places[k].row, m);
    if (places[k].column != k) ExchangeColumns(a, k, places[k].column, m);
    Eliminate(a, k, m);
    det *= big;
  }
  UndoExchanges(a, std::span(places).first(m));
  for (std::size_t i = 0; i < m; ++i) {
    for (std::size_t j = 0; j < m; ++j) Finite(a[i][j]);
  }
  return det;
}

}  // namespace dorvane
