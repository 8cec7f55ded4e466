// Parameters, direct cell and the errors of both, of one measurement of each system, against values
// computed elsewhere: normal equations with 40 decimal digits on the d values as they stand here,
// the direct cell through the reciprocal lengths and cosines, its derivatives by numeric
// differentiation in each parameter, and the errors from them without covariances.
#include <gtest/gtest.h>

#include <array>

#include "lattice/CalLattice.h"
#include "lattice/RefinementFixture.h"

namespace dorvane {
namespace {

constexpr double kValueShare = 1e-6;
constexpr double kAngleTolerance = 2e-4;
// Residuals are 2e-4 of a row, which 32 bits round to some 1e-7.
constexpr double kErrorShare = 1e-3;
// Of an angle that symmetry holds, degrees: rounding.
constexpr double kFixedAngle = 1e-6;

struct Measurement {
  std::vector<PlaneLine> lines;
  std::vector<double> recip, recip_err;
  std::array<double, 7> direct, direct_err;
};

class RefinementErrorsTest : public testing::Test, public RefinementFixture {
 protected:
  void ExpectAsComputed(std::int16_t system, const Measurement& computed) {
    ASSERT_EQ(Refine(system, computed.lines), kLsqDone);
    for (std::size_t p = 0; p < computed.recip.size(); ++p) {
      const int n = static_cast<int>(p) + 1;
      const double error = computed.recip_err[p];
      EXPECT_NEAR(result.Recip[n], computed.recip[p], 0.01 * error) << n;
      EXPECT_NEAR(result.RecipErr[n], error, kErrorShare * error) << n;
    }
    for (std::size_t k = 0; k < 7; ++k) {
      const int n = static_cast<int>(k) + 1;
      const bool is_angle = k >= 3 && k < 6;
      const double value = computed.direct[k], error = computed.direct_err[k];
      EXPECT_NEAR(result.Direct[n], value, is_angle ? kAngleTolerance : 3 * kValueShare * value)
          << n;
      EXPECT_NEAR(result.DirectErr[n], error, kErrorShare * error + (is_angle ? kFixedAngle : 0))
          << n;
    }
  }
};

TEST_F(RefinementErrorsTest, CubicErrorsAreThoseOfTheirFormula) {
  ExpectAsComputed(kCubic,
                   {{{1, 1, 1, 2.35466},
                     {2, 0, 0, 2.03951},
                     {2, 2, 0, 1.44194},
                     {3, 1, 1, 1.22967},
                     {2, 2, 2, 1.17717},
                     {4, 0, 0, 1.01961},
                     {3, 3, 1, 0.9359},
                     {4, 2, 0, 0.91208}},
                    {0.0601139139},
                    {5.33967397e-6},
                    {4.07861298, 4.07861298, 4.07861298, 90.0, 90.0, 90.0, 67.8480691},
                    {0.000181143284, 0.000181143284, 0.000181143284, 0, 0, 0, 0.00904000118}});
}

TEST_F(RefinementErrorsTest, TetragonalErrorsAreThoseOfTheirFormula) {
  ExpectAsComputed(kTetragonal,
                   {{{1, 1, 0, 3.24912},
                     {1, 0, 1, 2.48776},
                     {2, 0, 0, 2.29718},
                     {1, 1, 1, 2.1876},
                     {2, 1, 0, 2.05381},
                     {2, 1, 1, 1.68789},
                     {2, 2, 0, 1.62439},
                     {0, 0, 2, 1.47965},
                     {3, 1, 0, 1.45226},
                     {3, 0, 1, 1.35953}},
                    {0.0473899631, 0.114187499},
                    {8.68694291e-6, 3.78449599e-5},
                    {4.5936385, 4.5936385, 2.95931175, 90.0, 90.0, 90.0, 62.4459602},
                    {0.000421024546, 0.000421024546, 0.000490399716, 0, 0, 0, 0.0154309593}});
}

TEST_F(RefinementErrorsTest, HexagonalErrorsAreThoseOfTheirFormula) {
  ExpectAsComputed(kHexagonal,
                   {{{0, 1, 2, 3.47938},
                     {1, 0, 4, 2.55084},
                     {1, 1, 0, 2.3795},
                     {1, 1, 3, 2.08535},
                     {0, 2, 4, 1.74018},
                     {1, 1, 6, 1.60131},
                     {2, 1, 4, 1.4046},
                     {3, 0, 0, 1.37383},
                     {1, 0, 10, 1.239},
                     {1, 1, 9, 1.23466}},
                    {0.0588751328, 0.0059239328},
                    {9.93730914e-6, 1.431014e-6},
                    {4.75886537, 4.75886537, 12.9925662, 90.0, 90.0, 120.0, 254.819352},
                    {0.000401615368, 0.000401615368, 0.00156927372, 0, 0, 0, 0.0528878606}});
}

TEST_F(RefinementErrorsTest, OrthorhombicErrorsAreThoseOfTheirFormula) {
  ExpectAsComputed(kOrthorhombic,
                   {{{0, 2, 0, 5.09772},
                     {1, 0, 1, 3.72216},
                     {1, 2, 0, 3.47595},
                     {0, 3, 1, 2.95407},
                     {1, 3, 1, 2.50913},
                     {1, 1, 2, 2.45651},
                     {0, 4, 1, 2.34487},
                     {2, 1, 0, 2.31479},
                     {1, 2, 2, 2.26682},
                     {1, 4, 0, 2.24568},
                     {2, 1, 1, 2.15842},
                     {0, 6, 2, 1.47761}},
                    {0.0442592117, 0.00962241737, 0.027954058},
                    {1.01567906e-5, 1.68593884e-6, 9.93795439e-6},
                    {4.75333215, 10.1943116, 5.98105188, 90.0, 90.0, 90.0, 289.823527},
                    {0.000545407355, 0.00089307007, 0.00106316265, 0, 0, 0, 0.0663672013}});
}

TEST_F(RefinementErrorsTest, MonoclinicErrorsAreThoseOfTheirFormula) {
  ExpectAsComputed(
      kMonoclinic,
      {{{1, 1, 0, 6.45668},
        {0, 2, 0, 4.44972},
        {0, 2, 1, 3.34075},
        {2, 2, 0, 3.2279},
        {-2, 2, 1, 2.98387},
        {3, 1, 0, 2.95223},
        {-1, 3, 1, 2.55759},
        {0, 0, 2, 2.52825},
        {2, 2, 1, 2.51786},
        {-3, 1, 1, 2.88818},
        {1, 3, 1, 2.38757},
        {-2, 0, 2, 2.52842}},
       {0.011350906, 0.012630766, 0.0391039085, 0.0113436578},
       {3.79629674e-6, 3.26533612e-6, 1.21866359e-5, 1.26014127e-5},
       {9.74590581, 8.89785154, 5.25082313, 90.0, 105.617506, 90.0, 438.527952},
       {0.00195375647, 0.00115014703, 0.000995297393, 0, 0.0181646873, 0, 0.127830803}});
}

TEST_F(RefinementErrorsTest, TriclinicErrorsAreThoseOfTheirFormula) {
  ExpectAsComputed(
      kTriclinic,
      {{{1, 0, 0, 6.70815},
        {0, 1, 0, 7.536},
        {0, 0, 1, 5.46005},
        {-1, 1, 0, 5.90465},
        {0, 1, 1, 4.30851},
        {-1, 0, 1, 4.72391},
        {1, 1, 0, 4.43016},
        {0, 2, 0, 3.7664},
        {-2, 1, 0, 3.44684},
        {2, 0, 0, 3.35465},
        {1, 1, 1, 3.1911},
        {-1, 2, 1, 3.18574},
        {0, 2, 1, 3.02171},
        {2, 0, 1, 2.63242}},
       {0.0222145033, 0.0176147709, 0.0335381615, 0.00275111118, 0.01093943, 0.0111403699},
       {4.99166943e-6, 4.82919782e-6, 1.1790882e-5, 1.6554364e-5, 1.51923531e-5, 9.5509256e-6},
       {7.12563724, 7.85236335, 5.57352712, 90.0101547, 101.101133, 106.038558, 293.637958},
       {0.00113630654, 0.00130712314, 0.00107115172, 0.0215148312, 0.018033073, 0.0154952491,
        0.0833583719}});
}

}  // namespace
}  // namespace dorvane
