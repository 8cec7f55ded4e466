// The command "info".
#include <gmock/gmock.h>

#include "batch/BatchFixture.h"
#include "files/FileDorvane.h"
#include "files/Samples.h"

namespace dorvane {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class InfoTest : public BatchTest {
 protected:
  InfoTest() {
    record_.OpDate.Set("20161104");
    record_.OpTime.Set("045252");
  }

  BatchRun InfoOfXbm() const {
    folder.Put("run.xbm", AsText(XbmImage(block_, record_)));
    return Run({"info", "run.xbm"});
  }
  BatchRun InfoOfSeed(const std::string& name, const std::string& seed) const {
    std::filesystem::copy_file(DORVANE_SOURCE_DIR "/fuzz/corpus/" + seed, folder.Path(name));
    return Run({"info", name});
  }

  ChannelBlock block_ = SampleBlock(20);
  SpectrumRec record_ = SampleRecord();
};

// Numbers as Samples.h counts them; the counts are 10, 13, ... 64 and 0: 19 * 37 in sum.
TEST_F(InfoTest, PrintsHeaderAndSums) {
  EXPECT_EQ(InfoOfXbm().out,
            "run.xbm\n"
            "  Name            run 12\n"
            "  Sample          酸化アルミニウム\n"
            "  Operator        Operator\n"
            "  Date and time   2016-11-04 04:52:52\n"
            "  Memo            a comment\n"
            "  Data type       native\n"
            "  Processing      smoothed, fit\n"
            "  2-theta         1.25 deg\n"
            "  EGC(0)          0.0226609 keV\n"
            "  EGC(1)          0.0647732 keV/channel\n"
            "  EGC(2)          3.87721E-8 keV/channel^2\n"
            "  Live time       9.25 s\n"
            "  Real time       8.25 s\n"
            "  Pressure        4.25 GPa\n"
            "  Press load      22.25 ton\n"
            "  Temperature     5.25 °C\n"
            "  Press X         10.25 mm\n"
            "  Press Y         11.25 mm\n"
            "  Press Z         12.25 mm\n"
            "  Press PHI       13.25 deg\n"
            "  Ring current    3.25 mA\n"
            "  Counting rate   7.25 1/s\n"
            "  Channels        20\n"
            "  Sum of counts   703\n"
            "  Largest count   64 in channel 19\n"
            "  Peaks           0\n");
}

TEST_F(InfoTest, AbsentTextsAreBlank) {
  record_ = SpectrumRec{};
  const std::string out = InfoOfXbm().out;
  EXPECT_THAT(out, HasSubstr("  Sample\n  Operator\n"));
  EXPECT_THAT(out, HasSubstr("  Date and time\n"));
  EXPECT_THAT(out, HasSubstr("  Processing      none\n"));
}

TEST_F(InfoTest, DateOrTimeAloneStandsAlone) {
  record_.OpTime.Clear();
  EXPECT_THAT(InfoOfXbm().out, HasSubstr("  Date and time   2016-11-04\n"));
  record_.OpTime.Set("045252");
  record_.OpDate.Clear();
  EXPECT_THAT(InfoOfXbm().out, HasSubstr("  Date and time   04:52:52\n"));
}

TEST_F(InfoTest, DateThatIsNotAllDigitsStandsAsItIs) {
  record_.OpDate.Set("4 Nov 16");
  record_.OpTime.Set("4:52");
  EXPECT_THAT(InfoOfXbm().out, HasSubstr("  Date and time   4 Nov 16 4:52\n"));
}

TEST_F(InfoTest, SumsBeyond32BitsAreRight) {
  block_.Count = kMaxChannels;
  block_.Counts.fill(2147483647);
  const std::string out = InfoOfXbm().out;
  EXPECT_THAT(out, HasSubstr("  Channels        8192\n"));
  EXPECT_THAT(out, HasSubstr("  Sum of counts   17592186036224\n"));  // 8192 (2^31 - 1)
  EXPECT_THAT(out, HasSubstr("  Largest count   2147483647 in channel 1\n"));
}

TEST_F(InfoTest, NegativeCountsHaveALargestOne) {
  block_.Count = 3;
  block_.Counts[0] = -7;
  block_.Counts[1] = -5;
  block_.Counts[2] = -6;
  const std::string out = InfoOfXbm().out;
  EXPECT_THAT(out, HasSubstr("  Sum of counts   -18\n"));
  EXPECT_THAT(out, HasSubstr("  Largest count   -5 in channel 2\n"));
}

TEST_F(InfoTest, NoChannelsHaveNoLargestCount) {
  block_.Count = 0;
  const std::string out = InfoOfXbm().out;
  EXPECT_THAT(out, HasSubstr("  Channels        0\n  Sum of counts   0\n  Peaks"));
}

TEST_F(InfoTest, PeaksAndThoseFittedAreCounted) {
  PeakTable peaks = SamplePeaks(3);
  peaks.Peaks[1].FitDone = 0;
  folder.Put("run.xba", AsText(XbaImage(block_, record_, peaks)));
  EXPECT_THAT(Run({"info", "run.xba"}).out, HasSubstr("  Peaks           3, fitted 2\n"));
}

TEST_F(InfoTest, AngleDispersivePatternHasAnglesInPlaceOfTheCalibration) {
  const std::string out = InfoOfSeed("dac.raw", "dac_fuzz/two_lines").out;
  EXPECT_THAT(out, HasSubstr("  Data type       angle-dispersive\n"));
  EXPECT_THAT(out, HasSubstr("  First angle     2 deg\n  Angle step      0.01 deg\n"));
  EXPECT_THAT(out, Not(HasSubstr("EGC")));
}

// Coefficients 0.25 and the 32-bit float next to 0.05, as the seed has them.
TEST_F(InfoTest, FormatWithoutATypeIsToldSo) {
  const std::string out = InfoOfSeed("a.chn", "chn_fuzz/sixteen_channels").out;
  EXPECT_THAT(out, HasSubstr("  Data type       none\n"));
  EXPECT_THAT(out, HasSubstr("  EGC(0)          0.25 keV\n"));
  EXPECT_THAT(out, HasSubstr("  EGC(1)          0.0500000007 keV/channel\n"));
}

TEST_F(InfoTest, SeriesAndEndingsInCapitalsAreRead) {
  folder.Put("run.001", AsText(XbmImage(block_, record_)));
  folder.Put("run.XBM", AsText(XbmImage(block_, record_)));
  const BatchRun run = Run({"info", "run.001", "run.XBM"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, StartsWith("run.001\n"));
  EXPECT_THAT(run.out, HasSubstr("\nrun.XBM\n"));
}

TEST_F(InfoTest, EachFileThatCannotBeReadIsToldInALineAndTheOthersAreDone) {
  folder.Put("run.xbm", AsText(XbmImage(block_, record_)));
  folder.Put("words.npd", "words");
  folder.Put("foreign.txt", "words");
  const BatchRun run = Run({"info", "missing.npd", "words.npd", "foreign.txt", "run.xbm"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.out, StartsWith("run.xbm\n"));
  EXPECT_EQ(run.err,
            "dorvane-batch: missing.npd: no such file\n"
            "dorvane-batch: words.npd: not a whole spectrum file: Open Error\n"
            "dorvane-batch: foreign.txt: not a kind of file that can be read (.npd, .cnf, .rpt, "
            ".chn, .xbm, .xba, .raw or a number)\n");
}

TEST_F(InfoTest, NothingIsWritten) {
  InfoOfXbm();
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"run.xbm", "samples"}));
}

}  // namespace
}  // namespace dorvane
