#include "fitting/FitMatrix.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr double kLeastRemainingLength = 1e-10;

// One sum alone waits for its own additions; up to four side by side fill the time.
constexpr std::size_t kSideBySide = 4;

// Calls work(first, sequence) for blocks of up to four out of `count` columns; the sequence 0, 1,
// ... has as many numbers as the block has columns.
template <typename Work>
void InBlocks(std::size_t count, Work work) {
  std::size_t first = 0;
  for (; first + kSideBySide <= count; first += kSideBySide) {
    work(first, std::make_index_sequence<kSideBySide>{});
  }
  if (count - first == 3) work(first, std::make_index_sequence<3>{});
  if (count - first == 2) work(first, std::make_index_sequence<2>{});
  if (count - first == 1) work(first, std::make_index_sequence<1>{});
}

template <std::size_t... W>
void SumSideBySide(const ColumnPair* pairs, std::size_t rows, double* sums,
                   std::index_sequence<W...>) {
  const double* const a[] = {pairs[W].a...};
  const double* const b[] = {pairs[W].b...};
  double sum[sizeof...(W)] = {};
  for (std::size_t i = 0; i < rows; ++i) ((sum[W] += a[W][i] * b[W][i]), ...);
  ((sums[W] = sum[W]), ...);
}

// Takes the projections off the columns and sums the squares of what is left.
template <std::size_t... W>
void TakeOff(const double* unit, std::size_t rows, double* const* columns, const double* products,
             double* squares, std::index_sequence<W...>) {
  double* const q[] = {columns[W]...};
  const double p[] = {products[W]...};
  double sum[sizeof...(W)] = {};
  for (std::size_t i = 0; i < rows; ++i) {
    const double u = unit[i];
    const double left[] = {(q[W][i] - p[W] * u)...};
    ((sum[W] += left[W] * left[W]), ...);
    ((q[W][i] = left[W]), ...);
  }
  ((squares[W] = sum[W]), ...);
}

// The next column of the factorisation.
struct Choice {
  std::size_t place;  // in the order of the pivots
  double length;      // what is left of the column
  double ratio;       // of that to the column's first length
};

// Out of the places k..m-1. In the first round the lengths themselves are compared, and noted as
// the first ones.
Choice ChoosePivot(std::size_t k, std::size_t m, const Pivots& pivots,
                   const std::array<double, FitMatrix::kColumns>& squares,
                   std::array<double, FitMatrix::kColumns>& first_length) {
  Choice best = {k, 0, 0};
  for (std::size_t j = k; j < m; ++j) {
    const double length = std::sqrt(squares[j]);
    const double ratio = Divide(length, first_length[pivots[j]]);
    if (k == 0) first_length[pivots[j]] = length;
    if (k == m - 1 || best.ratio < ratio) best = {j, length, ratio};
  }
  return best;
}

// Where the pivot of one elimination step was found.
struct PivotPlace {
  std::size_t row;
  std::size_t column;
};

// The element of greatest magnitude at or below and right of (k, k). Among equal ones the last; NaN
// is taken, so that the caller sees it.
PivotPlace FindPivot(MatrixView a, std::size_t k, std::size_t m) {
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

void ExchangeRows(MatrixView a, std::size_t k, std::size_t other, std::size_t m) {
  for (std::size_t j = 0; j < m; ++j) a[other][j] = -std::exchange(a[k][j], a[other][j]);
}

void ExchangeColumns(MatrixView a, std::size_t k, std::size_t other, std::size_t m) {
  for (std::size_t j = 0; j < m; ++j) a[j][other] = -std::exchange(a[j][k], a[j][other]);
}

void Eliminate(MatrixView a, std::size_t k, std::size_t m) {
  double* const pivot_row = a[k];
  const double pivot = pivot_row[k];
  for (std::size_t i = 0; i < m; ++i) {
    if (i == k) continue;
    double* const row = a[i];
    const double factor = -row[k] / pivot;
    FillColumn(row, m, [=](std::size_t j) { return factor * pivot_row[j] + row[j]; });
    row[k] = factor;
  }
  FillColumn(pivot_row, m, [=](std::size_t j) { return pivot_row[j] / pivot; });
  pivot_row[k] = 1 / pivot;
}

// The interchanges in reverse, rows and columns having changed their parts.
void UndoExchanges(MatrixView a, std::span<const PivotPlace> places) {
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
  InBlocks(pairs.size(), [&](std::size_t first, auto block) {
    SumSideBySide(&pairs[first], rows, &sums[first], block);
  });
}

void CombineColumns(const FitMatrix& columns, std::size_t m, const double* factors,
                    std::size_t rows, double* out) {
  std::fill_n(out, rows, 0.0);
  InBlocks(
      m, [&]<std::size_t... W>(std::size_t first, std::index_sequence<W...>) {
        const double* const q[] = {columns.Column(first + W)...};
        const double factor[] = {factors[first + W]...};
        for (std::size_t i = 0; i < rows; ++i) {
          double sum = out[i];
          ((sum += q[W][i] * factor[W]), ...);
          out[i] = sum;
        }
      });
}

std::size_t GramSchmidtQR(FitMatrix& q, std::size_t rows, std::size_t m, SquareMatrix& r,
                          Pivots& pivots) {
  std::array<double, FitMatrix::kColumns> first_length, squares, products;
  std::array<ColumnPair, FitMatrix::kColumns> pairs;
  std::array<double*, FitMatrix::kColumns> others;
  first_length.fill(1);
  for (std::size_t j = 0; j < m; ++j) {
    pivots[j] = j;
    r[j].fill(0);
    pairs[j] = {q.Column(j), q.Column(j)};
  }
  InnerProducts(std::span(pairs).first(m), rows, squares);
  for (std::size_t k = 0; k < m; ++k) {
    const Choice choice = ChoosePivot(k, m, pivots, squares, first_length);
    std::swap(pivots[k], pivots[choice.place]);
    r[k][pivots[k]] = choice.length;
    if (choice.ratio <= kLeastRemainingLength) {
      for (std::size_t j = k; j < m; ++j) {
        for (std::size_t i = 0; i < m; ++i) r[i][pivots[j]] = 0;
      }
      return k;
    }
    double* const unit = q.Column(pivots[k]);
    FillColumn(unit, rows, [=](std::size_t i) { return unit[i] / choice.length; });
    const std::size_t count = m - k - 1;
    for (std::size_t j = 0; j < count; ++j) {
      others[j] = q.Column(pivots[k + 1 + j]);
      pairs[j] = {others[j], unit};
    }
    InnerProducts(std::span(pairs).first(count), rows, products);
    for (std::size_t j = 0; j < count; ++j) r[k][pivots[k + 1 + j]] = products[j];
    InBlocks(count, [&](std::size_t first, auto block) {
      TakeOff(unit, rows, &others[first], &products[first], &squares[k + 1 + first], block);
    });
  }
  return m;
}

double MatInverse(MatrixView a, std::size_t m, double least_pivot) {
  std::array<PivotPlace, kMaxInverse> places;
  double det = 1;
  for (std::size_t k = 0; k < m; ++k) {
    places[k] = FindPivot(a, k, m);
    const double big = Finite(a[places[k].row][places[k].column]);
    if (std::abs(big) <= least_pivot) return 0;
    if (places[k].row != k) ExchangeRows(a, k, places[k].row, m);
    if (places[k].column != k) ExchangeColumns(a, k, places[k].column, m);
    Eliminate(a, k, m);
    det = Finite(det * big);
  }
  UndoExchanges(a, std::span(places).first(m));
  for (std::size_t i = 0; i < m; ++i) {
    for (std::size_t j = 0; j < m; ++j) Finite(a[i][j]);
  }
  return det;
}

}  // namespace dorvane
