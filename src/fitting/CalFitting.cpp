#include "fitting/CalFitting.h"

#include <algorithm>
#include <cmath>

#include "fitting/FitMatrix.h"
#include "processing/Calc.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr std::string_view kManyData = "(error) CFDQR2 : Many Data!";
constexpr std::string_view kStartFault = "(error) CFDQR2 :初期fGaussのエラー";
constexpr std::string_view kStartRefused = "(error) CFDQR2: 係数の初期値が不適切。";
constexpr std::string_view kSingular =
    "(error) CFDQR2: 行列式の値が０になった。データ入力ミス、または係数が多い。";
constexpr std::string_view kTrialFault = "(error) CFDQR2 :係数アウト！";
constexpr std::string_view kManyNegativeTrials =
    "(warning) CFDQR2: 内側ループが100回を超えた。計算中止。";
// KEPT: this limit is 500 although the text says 100, and the text ends without a full stop.
constexpr std::string_view kManyRejectedTrials =
    "(warning) CFDQR2: 内側ループが100回を超えた。計算中止";
constexpr std::string_view kManyOuterRounds =
    "(warning) CFDQR2: 外側ループが100回を超えた。計算打ち切り";

constexpr double kLargestProductFactorial = 50;
constexpr double kPi = 3.14159265358979;

// Columns of the two heights of a GaussLorentz.
constexpr std::size_t kGaussHeight = 0;
constexpr std::size_t kLorentzHeight = 3;

// The m by m products of the columns of `a` and `b`, known to be symmetric.
void SymmetricProduct(const FitMatrix& a, const FitMatrix& b, std::size_t n, std::size_t m,
                      SquareMatrix& product) {
  constexpr std::size_t kMostPairs = FitMatrix::kColumns * (FitMatrix::kColumns + 1) / 2;
  std::array<ColumnPair, kMostPairs> pairs;
  std::array<double, kMostPairs> sums;
  std::size_t count = 0;
  for (std::size_t j = 0; j < m; ++j) {
    for (std::size_t k = j; k < m; ++k) pairs[count++] = {a.Column(j), b.Column(k)};
  }
  InnerProducts(std::span(pairs).first(count), n, sums);
  count = 0;
  for (std::size_t j = 0; j < m; ++j) {
    for (std::size_t k = j; k < m; ++k) product[j][k] = product[k][j] = sums[count++];
  }
}

bool IsLineShape(std::int16_t mode) {
  return mode >= static_cast<int>(LineShape::Gauss) &&
         mode <= static_cast<int>(LineShape::GaussLorentz);
}

// One run of the iteration: its data, its coefficients and its work arrays. Columns of the matrices
// belong to coefficients, rows to points.
class PoissonFit {
 public:
  PoissonFit(std::span<const double> x, std::span<const double> y, LineShape shape, Coefficients& c,
             int m, const FitLimits& limits)
      : x_(x),
        y_(y),
        n_(x.size()),
        shape_(shape),
        m_(static_cast<std::size_t>(m)),
        limits_(limits),
        c_(c),
        ct_(c) {}

  FitSummary Run();

 private:
  // Each answers whether the fit goes on; where it doesn't, the summary says why.
  bool Start();
  bool Linearise();
  bool ImproveLikelihood();
  bool EstimateErrors();
  bool End(int status, std::string_view message = {});

  void Solve();
  void FillDampedProblem();
  bool Converged(double change, double log_l) const;
  std::span<double> Values() { return std::span(f_).first(n_); }
  std::span<double> Exponentials() { return std::span(exponentials_).first(n_); }
  int M() const { return static_cast<int>(m_); }

  std::span<const double> x_, y_;
  std::size_t n_;
  LineShape shape_;
  std::size_t m_;
  FitLimits limits_;
  Coefficients& c_;
  FitSummary summary_;

  double log_factorials_ = 0;
  double log_l_ = 0;
  double damping_ = 0;           // lam
  double critical_damping_ = 0;  // lamc
  double predicted_ = 0;         // gain of the likelihood that the linear problem promises

  Coefficients ct_;                      // trial coefficients
  Coefficients d_, g_, scale_;           // step, projected residual, scale of the columns
  int last_column_ = 0;                  // coefficient that was solved last, 0 for none
  Fixed<double, 1, kMaxFitPoints> r_;    // residuals, then the zeros of the damping rows
  std::array<double, kMaxFitPoints> f_;  // model values
  std::array<double, kMaxFitPoints> exponentials_;
  std::array<double, kMaxFitPoints> weight_;
  FitMatrix derivatives_;  // at the coefficients of f
  FitMatrix jacobian_, gradient_, q_;
  SquareMatrix normal_, information_, triangle_;
  Pivots pivots_;
};

bool PoissonFit::End(int status, std::string_view message) {
  summary_.status = ToInt16(status);
  summary_.message = message;
  return false;
}

FitSummary PoissonFit::Run() {
  bool goes_on = Start();
  while (goes_on) {
    ++summary_.outer_rounds;
    goes_on = Linearise() && ImproveLikelihood();
    if (goes_on && summary_.outer_rounds > limits_.outer_rounds) {
      goes_on = End(kFitLimitReached, kManyOuterRounds);
    }
  }
  return summary_;
}

bool PoissonFit::Start() {
  for (const double count : y_) log_factorials_ = AddLogFactorial(log_factorials_, count);
  if (const int err = ShapeValues(shape_, x_, c_, M(), Exponentials(), Values()); err != 0) {
    return End(err, kStartFault);
  }
  bool not_positive = false;
  log_l_ = PoissonLogL(y_, Values(), not_positive);
  if (not_positive) return End(kFitRefused, kStartRefused);
  const int err = ShapeDerivatives(shape_, x_, c_, M(), Exponentials(), derivatives_);
  return err == 0 || End(err);
}

// The weighted Jacobian with columns of unit length, the weighted residuals, and the critical
// damping, which is the reciprocal of the trace of the inverse normal matrix.
bool PoissonFit::Linearise() {
  for (std::size_t i = 0; i < n_; ++i) {
    weight_[i] = 1 / std::sqrt(f_[i]);
    r_.data()[i] = (y_[i] - f_[i]) * weight_[i];
  }
  std::array<ColumnPair, FitMatrix::kColumns> squares;
  std::array<double, FitMatrix::kColumns> sums;
  for (std::size_t j = 0; j < m_; ++j) {
    const double* const derivative = derivatives_.Column(j);
    double* const column = jacobian_.Column(j);
    FillColumn(column, n_, [=, this](std::size_t i) { return weight_[i] * derivative[i]; });
    squares[j] = {column, column};
  }
  InnerProducts(std::span(squares).first(m_), n_, sums);
  for (std::size_t j = 0; j < m_; ++j) {
    double* const column = jacobian_.Column(j);
    const double scale = Divide(1, std::sqrt(Finite(sums[j])));
    scale_.data()[j] = scale;
    FillColumn(column, n_, [=](std::size_t i) { return column[i] * scale; });
  }
  SymmetricProduct(jacobian_, jacobian_, n_, m_, normal_);
  if (MatInverse(normal_, m_) == 0) return End(kFitRefused, kSingular);
  double trace = 0;
  for (std::size_t j = 0; j < m_; ++j) trace += normal_[j][j];
  if (trace == 0) {
    summary_.trace_zero = true;
    return End(kFitEnded);
  }
  critical_damping_ = Divide(1, trace);
  return true;
}

// Q is the Jacobian with one damping row below it for each coefficient. The residuals have room for
// 500 rows.
void PoissonFit::FillDampedProblem() {
  for (std::size_t j = 0; j < m_; ++j) {
    std::copy_n(jacobian_.Column(j), n_, q_.Column(j));
    std::fill_n(q_.Column(j) + n_, m_, 0.0);
    q_.Column(j)[n_ + j] = std::sqrt(std::abs(damping_));
  }
  // KEPT: 500 points pass the test of the size, but then the rows of the damping don't: a subscript
  // fault.
  for (int row = static_cast<int>(n_) + 1; row <= static_cast<int>(n_ + m_); ++row) r_[row] = 0;
}

// Trial coefficients from the damped linear problem.
// KEPT: what the rank leaves out keeps the value of the trial before, accepted or not.
void PoissonFit::Solve() {
  FillDampedProblem();
  const std::size_t rank = GramSchmidtQR(q_, n_ + m_, m_, triangle_, pivots_);
  double* const d = d_.data();
  double* const g = g_.data();
  d_.fill(0);
  std::array<ColumnPair, FitMatrix::kColumns> pairs;
  std::array<double, FitMatrix::kColumns> projected;
  for (std::size_t k = 0; k < rank; ++k) pairs[k] = {q_.Column(pivots_[k]), r_.data()};
  InnerProducts(std::span(pairs).first(rank), n_, projected);
  for (std::size_t k = rank; k-- > 0;) {
    const std::size_t column = pivots_[k];
    g[column] = projected[k];
    double t = g[column];
    for (std::size_t j = k + 1; j < rank; ++j) t -= triangle_[k][pivots_[j]] * d[pivots_[j]];
    d[column] = t / triangle_[k][column];
  }
  predicted_ = 0;
  for (std::size_t k = 0; k < rank; ++k) {
    const std::size_t column = pivots_[k];
    predicted_ += g[column] * g[column];
    d[column] = Finite(d[column] * scale_.data()[column]);
    ct_.data()[column] = d[column] + c_.data()[column];
    last_column_ = static_cast<int>(column) + 1;
  }
}

// Standard errors at the trial coefficients: the sandwich of the inverse information matrix and the
// gradients, with the model value as the variance of each count.
bool PoissonFit::EstimateErrors() {
  summary_.standard_error.fill(0);
  summary_.height_covariance = 0;
  const int err = ShapeDerivatives(shape_, x_, ct_, M(), Exponentials(), derivatives_);
  if (err != 0) return End(err);
  FillColumn(weight_.data(), n_, [this](std::size_t i) { return 1 / f_[i]; });
  for (std::size_t j = 0; j < m_; ++j) {
    const double* const derivative = derivatives_.Column(j);
    FillColumn(gradient_.Column(j), n_,
               [=, this](std::size_t i) { return weight_[i] * derivative[i]; });
    FillColumn(q_.Column(j), n_, [=, this](std::size_t i) {
      return weight_[i] * weight_[i] * y_[i] * derivative[i];
    });
  }
  SymmetricProduct(q_, derivatives_, n_, m_, information_);
  for (std::size_t j = 0; j < m_; ++j) {
    for (std::size_t k = 0; k < m_; ++k) information_[j][k] = -information_[j][k];
  }
  if (MatInverse(information_, m_) == 0) return End(kFitRefused, kSingular);
  std::array<ColumnPair, FitMatrix::kColumns> squares;
  std::array<double, FitMatrix::kColumns> sums;
  for (std::size_t j = 0; j < m_; ++j) {
    double* const t = q_.Column(j);
    CombineColumns(gradient_, m_, information_[j].data(), n_, t);
  }
  if (shape_ == LineShape::GaussLorentz && m_ > kLorentzHeight) {
    const double* const gauss = q_.Column(kGaussHeight);
    const double* const lorentz = q_.Column(kLorentzHeight);
    for (std::size_t i = 0; i < n_; ++i) {
      summary_.height_covariance += gauss[i] * lorentz[i] * f_[i];
    }
  }
  for (std::size_t j = 0; j < m_; ++j) {
    double* const t = q_.Column(j);
    FillColumn(t, n_, [=](std::size_t i) { return t[i] * t[i]; });
    squares[j] = {t, f_.data()};
  }
  InnerProducts(std::span(squares).first(m_), n_, sums);
  for (std::size_t j = 0; j < m_; ++j) {
    summary_.standard_error.data()[j] = std::sqrt(Finite(sums[j]));
  }
  return true;
}

bool PoissonFit::Converged(double change, double log_l) const {
  if (std::abs(log_l - log_factorials_) * 1e-7 < std::abs(change)) return false;
  // KEPT: one coefficient, the one solved last, sets the floor for all of them.
  const double floor = last_column_ == 0 ? 0 : std::abs(ct_[last_column_]) * 1e-10;
  for (int j = 1; j <= M(); ++j) {
    if (std::abs(d_[j]) > MaxVal(summary_.standard_error[j] * 1e-6, floor)) return false;
  }
  return true;
}

// Tries steps until one raises the likelihood, accepts that and adapts the damping.
bool PoissonFit::ImproveLikelihood() {
  for (int inner = 1;; ++inner) {
    ++summary_.trials;
    Solve();
    if (const int err = ShapeValues(shape_, x_, ct_, M(), Exponentials(), Values()); err != 0) {
      return End(err, kTrialFault);
    }
    bool not_positive = false;
    const double log_l = PoissonLogL(y_, Values(), not_positive);
    if (not_positive) {
      damping_ = Finite(MaxVal(2 * damping_, critical_damping_));
      if (inner > limits_.not_positive_trials) return End(kFitLimitReached, kManyNegativeTrials);
      continue;
    }
    if (!EstimateErrors()) return false;
    const double change = log_l - log_l_;
    if (Converged(change, log_l)) {
      c_ = ct_;
      return End(kFitEnded);
    }
    const double ratio = Divide(change, predicted_);
    if (ratio < 0) {
      const double factor = MaxVal(2, MinVal(2 - ratio, 10));
      damping_ = Finite(factor * damping_);
      if (damping_ == 0) damping_ = factor * critical_damping_ * 0.5;
      if (inner > limits_.rejected_trials) return End(kFitLimitReached, kManyRejectedTrials);
      continue;
    }
    if (ratio >= 0.75) {
      damping_ *= 0.5;
      if (damping_ < critical_damping_) damping_ = 0;
    } else if (ratio < 0.25) {
      damping_ = MaxVal(2 * damping_, critical_damping_);
    }
    c_ = ct_;
    log_l_ = log_l;
    return true;
  }
}

// The values that a fit starts from when its driver has none.
void MakeStartingValues(Coefficients& c, double highest, int position, double first,
                        bool two_peaks) {
  c[1] = highest;
  c[2] = position;
  c[3] = 10;
  c[4] = first;
  c[5] = 0;
  if (!two_peaks) return;
  // KEPT: another order than the one in which the line of two peaks reads its coefficients.
  c[2] = highest / 10;
  c[3] = position;
  c[4] = 10;
  c[5] = first;
  c[6] = 0;
}

}  // namespace

double AddLogFactorial(double sum, double y) {
  if (y <= 1) return sum;
  if (y > kLargestProductFactorial) {
    return sum + (y + 0.5) * std::log(y) + 0.5 * std::log(2 * kPi) - y + 1 / (12 * y);
  }
  double t = y;
  do {
    sum += std::log(t);
    t -= 1;
  } while (t > 1);
  return sum;
}

double PoissonLogL(std::span<const double> y, std::span<const double> f, bool& flag) {
  flag = false;
  double sum = 0;
  for (std::size_t i = 0; i < y.size(); ++i) {
    if (f[i] <= 0) {
      flag = true;
      return 0;
    }
    sum += y[i] * std::log(f[i]) - f[i];
  }
  return Finite(sum);
}

FitSummary CFDQR2(std::span<const double> x, std::span<const double> y, std::int16_t mode,
                  Coefficients& c, int m, const FitLimits& limits) {
  FitSummary summary;
  summary.status = kFitRefused;
  if (x.size() != y.size()) throw Fault(FaultCode::BadArgument);
  if (m < 0 || m > kMaxCoefficients) throw Fault(FaultCode::Subscript);
  if (x.size() > kMaxFitPoints) {
    summary.message = kManyData;
    return summary;
  }
  if (!IsLineShape(mode)) {
    summary.message = kStartRefused;
    return summary;
  }
  return PoissonFit(x, y, static_cast<LineShape>(mode), c, m, limits).Run();
}

FitSummary CurveFit(std::span<const double> x, std::span<const double> y, std::int16_t mode, int m,
                    Coefficients& c) {
  if (y.empty()) throw Fault(FaultCode::Subscript);
  const auto n = static_cast<double>(y.size());
  int position = RoundToInt16(n / 2);
  double highest = 0;
  for (std::size_t i = 0; i < y.size(); ++i) {
    if (y[i] <= highest) continue;
    highest = y[i];
    position = ToInt16(static_cast<std::int64_t>(i) + 1);
  }
  const bool two_peaks = mode == static_cast<int>(LineShape::GaussLorentz);
  if (c[1] <= 0) MakeStartingValues(c, highest, position, y[0], two_peaks);
  if (c[3] < 0) c[3] = 10;
  FitSummary summary = CFDQR2(x, y, mode, c, m);
  // KEPT: for the line of two peaks the half width is held in the region, for the others the
  // centre.
  double& held = c[two_peaks ? 3 : 2];
  summary.held = held < 1 || held > n;
  if (summary.held) held = n / 2;
  return summary;
}

}  // namespace dorvane
