// The standard errors of fitted peaks against the scatter of the fits of many noisy spectra.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <vector>

#include "fitting/CalWaveSprit.h"
#include "processing/Calc.h"
#include "program/NaxFitting.h"
#include "program/NaxManualFit.h"
#include "program/PeakErrorText.h"
#include "program/PeakFit.h"
#include "program/PeakFixture.h"
#include "support/RandomCounts.h"

namespace dorvane {
namespace {

// A scatter of 400 values is known to 1 / sqrt(800) of itself; this is four times as much.
constexpr int kSpectra = 400;
constexpr double kAgreement = 0.15;

// Values of a field in many fits, and the errors told with them.
struct Sample {
  std::vector<double> values;
  std::vector<double> errors;

  void Add(double value, double error) {
    values.push_back(value);
    errors.push_back(error);
  }
  double MeanError() const { return Mean(errors); }
  double Scatter() const {
    const double mean = Mean(values);
    double squares = 0;
    for (const double value : values) squares += (value - mean) * (value - mean);
    return std::sqrt(squares / (static_cast<double>(values.size()) - 1));
  }
  static double Mean(const std::vector<double>& numbers) {
    double sum = 0;
    for (const double number : numbers) sum += number;
    return sum / static_cast<double>(numbers.size());
  }
};

class PeakErrorsTest : public PeakFitTest {
 protected:
  using Shape = std::function<double(int channel)>;

  static Shape Gaussian(const Line& line, double background) {
    return [=](int channel) {
      const double u = (channel - line.center) / line.half_width;
      return background + line.height * std::exp2(-u * u);
    };
  }
  static Shape Lorentzian(const Line& line, double background) {
    return [=](int channel) {
      const double u = (channel - line.center) / line.half_width;
      return background + line.height / (1 + u * u);
    };
  }

  // A spectrum of counts drawn from the shape takes the place of the one shown.
  void Draw(const Shape& shape, int channels = 300) {
    ChannelBlock& block = workspace.Channels[data_no];
    block.Count = ToInt16(channels);
    for (int i = 0; i < channels; ++i) block.Counts[i] = random.Poisson(shape(i));
    workspace.Peaks[data_no].Count = 0;
  }
  // Draws, fits, and keeps the first peak of each fit.
  void Repeat(const Shape& shape, const std::function<void()>& fit) {
    for (int k = 0; k < kSpectra; ++k) {
      Draw(shape);
      fit();
      ASSERT_GE(Table().Count, 1);
      const PeakRec& peak = Table().Peaks[0];
      center.Add(peak.Center, peak.Errors.Center);
      height.Add(peak.Height, peak.Errors.Height);
      half_width.Add(peak.HalfWidth, peak.Errors.HalfWidth);
      gauss_ratio.Add(peak.GaussRatio, peak.Errors.GaussRatio);
    }
  }
  // A region as wide as the search makes it for a Gaussian; other lines have longer tails.
  void FitExpress(const Line& start, std::int16_t type) {
    const int reach = type == kGauss ? 20 : 60;
    Enter(data_no, start, 150 - reach, 150 + reach);
    FitOnePeak(program, data_no, 0, type, type == kMix ? 5 : 4);
  }
  void FitRegion(int first, int last, int at, int counts) {
    ManualFitList stated;
    stated.StartCh = ToInt16(first);
    stated.EndCh = ToInt16(last);
    stated.PeakNum = 1;
    stated.CenterCh[0] = ToInt16(at);
    stated.MaxCount[0] = counts;
    ASSERT_EQ(NaxManualFit(program, 0, data_no, stated), 0);
  }
  PeakTable& Table() { return workspace.Peaks[data_no]; }

  std::int16_t data_no = Show(std::vector<std::int32_t>(300, 1));
  RandomCounts random{20261121};
  Sample center, height, half_width, gauss_ratio;
};

void ExpectAgreement(const Sample& sample, const char* what) {
  EXPECT_NEAR(sample.MeanError() / sample.Scatter(), 1, kAgreement) << what;
}

TEST_F(PeakErrorsTest, OfAGaussianAreTheScatterOfTheExpressFit) {
  Repeat(Gaussian({2000, 150.3, 6}, 100), [this] { FitExpress({1900, 149, 5}, kGauss); });
  ExpectAgreement(center, "centre");
  ExpectAgreement(height, "height");
  ExpectAgreement(half_width, "half width");
  EXPECT_EQ(gauss_ratio.MeanError(), 0);
}

TEST_F(PeakErrorsTest, OfAWeakGaussianAreTheScatterOfTheExpressFit) {
  Repeat(Gaussian({300, 150.3, 6}, 50), [this] { FitExpress({340, 149, 5}, kGauss); });
  ExpectAgreement(center, "centre");
  ExpectAgreement(height, "height");
  ExpectAgreement(half_width, "half width");
}

TEST_F(PeakErrorsTest, OfALorentzianAreTheScatterOfTheExpressFit) {
  Repeat(Lorentzian({2000, 150.3, 6}, 100), [this] { FitExpress({1900, 149, 5}, kLorentz); });
  ExpectAgreement(center, "centre");
  ExpectAgreement(height, "height");
  ExpectAgreement(half_width, "half width");
  EXPECT_EQ(gauss_ratio.MeanError(), 0);
}

// The two heights of the line pull against each other: without their covariance the errors of the
// sum and of the share would be several times as great.
TEST_F(PeakErrorsTest, OfAMixedLineAreTheScatterOfTheExpressFit) {
  const auto gauss = Gaussian({3000, 150.3, 8}, 0);
  const auto lorentz = Lorentzian({2000, 150.3, 8}, 100);
  Repeat([&](int channel) { return gauss(channel) + lorentz(channel); },
         [this] {
           FitExpress({5000, 149, 7}, kMix);
         });
  ExpectAgreement(center, "centre");
  ExpectAgreement(height, "height");
  ExpectAgreement(half_width, "half width");
  ExpectAgreement(gauss_ratio, "share");
}

TEST_F(PeakErrorsTest, OfARegionAreTheScatterOfItsFit) {
  Repeat(Gaussian({2000, 150.3, 6}, 100), [this] { FitRegion(121, 181, 150, 1900); });
  ExpectAgreement(center, "centre");
  ExpectAgreement(height, "height");
  ExpectAgreement(half_width, "half width");
}

// High above its background the counts of a line scatter more than those beside it.
TEST_F(PeakErrorsTest, OfAScanAreTheScatterOfItsFit) {
  workspace.Settings.BgCoef = 5;
  Repeat(Gaussian({5000, 150.3, 6}, 50), [this] { NaxFitting(program, 0, data_no); });
  ExpectAgreement(center, "centre");
  ExpectAgreement(height, "height");
  ExpectAgreement(half_width, "half width");
}

TEST_F(PeakErrorsTest, OfAScanOnAHighBackgroundAreTheScatterOfItsFit) {
  workspace.Settings.BgCoef = 5;
  Repeat(Gaussian({1500, 150.3, 6}, 1000), [this] { NaxFitting(program, 0, data_no); });
  ExpectAgreement(center, "centre");
  ExpectAgreement(height, "height");
  ExpectAgreement(half_width, "half width");
}

// Smoothing makes neighbours depend on each other; what a fit makes of all of them is nearly the
// same, as long as a peak is wider than the smoothing.
class SmoothedPeakErrors : public PeakErrorsTest, public testing::WithParamInterface<int> {
 protected:
  void Smooth() { SmoothData(ToInt16(GetParam()), workspace.Channels[data_no].Used()); }
};

TEST_P(SmoothedPeakErrors, AreTheScatterOfTheExpressFit) {
  Repeat(Gaussian({2000, 150.3, 6}, 100), [this] {
    Smooth();
    FitExpress({1900, 149, 5}, kGauss);
  });
  ExpectAgreement(center, "centre");
  ExpectAgreement(height, "height");
  ExpectAgreement(half_width, "half width");
}

TEST_P(SmoothedPeakErrors, AreTheScatterOfTheScan) {
  workspace.Settings.BgCoef = 5;
  Repeat(Gaussian({5000, 150.3, 6}, 50), [this] {
    Smooth();
    NaxFitting(program, 0, data_no);
  });
  ExpectAgreement(center, "centre");
  ExpectAgreement(height, "height");
  ExpectAgreement(half_width, "half width");
}

INSTANTIATE_TEST_SUITE_P(Kinds, SmoothedPeakErrors, testing::Range(0, kSmoothKinds));

// ---- where there are none

TEST_F(PeakErrorsTest, FoundPeaksHaveNone) {
  Draw(Gaussian({2000, 150.3, 6}, 100));
  InsertAllPeaks(program);
  ASSERT_GE(Table().Count, 1);
  EXPECT_FALSE(AnyErrorKnown(Table()));
}

// A background that has been taken off leaves its scatter behind.
TEST_F(PeakErrorsTest, CountsThatDoNotScatterAsCountedOnesGiveNone) {
  for (const std::int16_t flag : {FlagBackGraund, FlagBackRemv, FlagFit}) {
    workspace.Spectra[data_no].Prop.Flags = flag;
    Draw(Gaussian({5000, 150.3, 6}, 100));
    FitExpress({4900, 149, 5}, kGauss);
    EXPECT_EQ(Table().Count, 1);
    EXPECT_FALSE(AnyErrorKnown(Table()));
    Draw(Gaussian({5000, 150.3, 6}, 100));
    FitRegion(121, 181, 150, 4900);
    EXPECT_EQ(Table().Count, 1);
    EXPECT_FALSE(AnyErrorKnown(Table()));
  }
}

TEST_F(PeakErrorsTest, FitThatDoesNotConvergeLeavesNoneOfAnEarlierOne) {
  Draw(Gaussian({2000, 150.3, 6}, 100));
  FitExpress({1900, 149, 5}, kGauss);
  EXPECT_TRUE(AnyErrorKnown(Table()));
  // Without a half width the model faults at its start.
  Table().Peaks[0].HalfWidth = 0;
  FitOnePeak(program, data_no, 0, kGauss, 4);
  EXPECT_FALSE(AnyErrorKnown(Table()));
}

// The graph of what is left above the background takes the peaks over with their errors.
TEST_F(PeakErrorsTest, FitOfCalculatedCountsLeavesNoneOfAnEarlierOne) {
  Draw(Gaussian({2000, 150.3, 6}, 100));
  FitExpress({1900, 149, 5}, kGauss);
  EXPECT_TRUE(AnyErrorKnown(Table()));
  workspace.Spectra[data_no].Prop.Flags = FlagBackRemv;
  FitOnePeak(program, data_no, 0, kGauss, 4);
  EXPECT_FALSE(AnyErrorKnown(Table()));
}

// The flank alone tells where the peak is, but a centre out there is not taken.
TEST_F(PeakErrorsTest, CentreThatIsPutBackIntoTheRegionHasNone) {
  Draw(Gaussian({2000, 150.3, 6}, 100));
  Enter(data_no, {1900, 147, 6}, 125, 147);
  EXPECT_EQ(FitOnePeak(program, data_no, 0, kGauss, 4).status, 0);
  EXPECT_EQ(Table().Peaks[0].Center, 125 + 23 / 2.0 - 1);
  EXPECT_FALSE(AnyErrorKnown(Table()));
}

TEST_F(PeakErrorsTest, SplitPeaksHaveNone) {
  Draw(Gaussian({2000, 150.3, 6}, 100));
  FitExpress({1900, 149, 5}, kGauss);
  WaveSplit(workspace.Channels[data_no].Used(), 120, 60, Table().Peaks.All().first(1), dialogs,
            log);
  EXPECT_FALSE(AnyErrorKnown(Table()));
}

TEST_F(PeakErrorsTest, CurveOfTheFitHasThoseOfItsPeaks) {
  workspace.Settings.BgCoef = 5;
  Draw(Gaussian({5000, 150.3, 6}, 100));
  NaxFitting(program, 0, data_no);
  EXPECT_TRUE(AnyErrorKnown(Table()));
  EXPECT_EQ(workspace.Peaks[Row(0).DataNo], Table());
}

}  // namespace
}  // namespace dorvane
