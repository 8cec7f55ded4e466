// The matrices of the peak fit and the two routines that work on them: the Gram-Schmidt
// factorisation and the inverse.
#pragma once

#include <array>
#include <cstddef>
#include <span>

namespace dorvane {

// Up to 510 rows (500 points and 10 damping rows) by 10 columns, every column contiguous. Not
// initialised: a fit fills what it uses.
class FitMatrix {
 public:
  static constexpr std::size_t kRows = 510;
  static constexpr std::size_t kColumns = 10;

  // Element (i, j) is Column(j)[i], both from 0.
  double* Column(std::size_t j) { return elements_[j].data(); }
  const double* Column(std::size_t j) const { return elements_[j].data(); }

 private:
  std::array<std::array<double, kRows>, kColumns> elements_;
};

// 10 by 10; element (i, j) is [i][j], both from 0.
using SquareMatrix = std::array<std::array<double, FitMatrix::kColumns>, FitMatrix::kColumns>;

// A square matrix of any size, rows contiguous, that lives elsewhere.
class MatrixView {
 public:
  template <std::size_t N>
  MatrixView(std::array<std::array<double, N>, N>& matrix)
      : elements_(matrix.front().data()), stride_(N) {}

  // Element (i, j) is [i][j], both from 0.
  double* operator[](std::size_t i) const { return elements_ + i * stride_; }

 private:
  double* elements_;
  std::size_t stride_;
};

// The greatest matrix that can be inverted.
inline constexpr std::size_t kMaxInverse = 30;

// Order of the columns after pivoting: the k-th column of the factorisation is column pivots[k].
using Pivots = std::array<std::size_t, FitMatrix::kColumns>;

// out[i] = element(i) for all rows. Two at a time, which compilers turn into packed arithmetic;
// `element` may read out[i].
template <typename Element>
void FillColumn(double* out, std::size_t rows, Element element) {
  std::size_t i = 0;
  for (; i + 1 < rows; i += 2) {
    const double first = element(i);
    const double second = element(i + 1);
    out[i] = first;
    out[i + 1] = second;
  }
  if (i < rows) out[i] = element(i);
}

// Two columns whose inner product is wanted.
struct ColumnPair {
  const double* a;
  const double* b;
};

// For every pair the sum of a[i] b[i] over the first `rows` elements, each in the order of the
// rows. Sums of several pairs run side by side, since one alone waits for its own additions. `sums`
// has an element for each pair.
void InnerProducts(std::span<const ColumnPair> pairs, std::size_t rows, std::span<double> sums);

// out[i] = the sum over the first m columns, in their order, of element i times the factor of the
// column.
void CombineColumns(const FitMatrix& columns, std::size_t m, const double* factors,
                    std::size_t rows, double* out);

// Modified Gram-Schmidt factorisation Q = Q' R with column pivoting of the leading `rows` by `m`
// part of Q, in place (Bjoerck, BIT 7 (1967) 1). The next pivot is the column with the greatest
// length left, measured by its length in the beginning; the first of equal ones. Answers the rank:
// it ends where no column has more than 1e-10 of its length left. Columns pivots[0..rank-1] of Q
// are then orthonormal, R[k][pivots[j]] for k <= j < rank is the triangular factor, and the columns
// pivots[rank..] of R are 0. Throws Fault(DivisionByZero) for a column of zeros beside one of
// another kind.
std::size_t GramSchmidtQR(FitMatrix& q, std::size_t rows, std::size_t m, SquareMatrix& r,
                          Pivots& pivots);

// Inverts the leading m by m part of A, m <= 30, in place by Gauss-Jordan elimination with full
// pivoting (the last of equal pivots), and answers the determinant. An answer of 0 means a singular
// matrix, left half-worked, or a determinant too small for a number: a pivot of a magnitude of
// `least_pivot` or less counts as 0. Throws Fault(Overflow or BadArgument) when a pivot, the
// determinant or an element of the inverse is no finite number.
double MatInverse(MatrixView a, std::size_t m, double least_pivot = 0);

}  // namespace dorvane
