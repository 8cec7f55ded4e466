// The command "calibrate".
#include <gmock/gmock.h>

#include <cmath>
#include <memory>

#include "batch/BatchFixture.h"
#include "batch/BatchPorts.h"
#include "batch/CalibrateCommand.h"
#include "files/FileNPD.h"
#include "files/FilePara.h"
#include "support/FailingFileLayer.h"

namespace dorvane {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::StartsWith;

class CalibrateTest : public BatchTest {
 protected:
  void Simulate(const std::string& egc = "0.02,0.07,0", int seed = 1) {
    Run({"simulate", "--sources", "Am-241:1,Co-57:1,Cd-109:1", "--fluorescence", "Mo:1,Ag:1,Pb:1",
         "--counts", "200000", "--egc", egc, "--seed", std::to_string(seed), "--out", "ref.npd",
         "--overwrite", "--quiet"});
  }
  void PutLines(const std::string& rows = kRows) {
    folder.Put("lines.csv", "energy_keV,channel,name\n" + rows);
  }
  // Lines that stand alone.
  static inline const std::string kRows =
      "19.6072,,Mo Kb1\n24.9426,,Ag Kb1\n59.5409,,Am-241\n72.8045,,Pb Ka2\n"
      "74.9693,,Pb Ka1\n88.0336,,Cd-109\n122.06065,,Co-57\n136.47356,,Co-57\n";
  static BatchRun Calibrate(std::vector<std::string> more = {}) {
    std::vector<std::string> words{"calibrate", "ref.npd", "--lines", "lines.csv"};
    words.insert(words.end(), more.begin(), more.end());
    return Run(words);
  }
  struct Value {
    double value = 0, error = 0;
  };
  // "  A  0.020000 +- 0.001000 keV" and so on.
  static std::vector<Value> Coefficients(const std::string& out) {
    std::vector<Value> values;
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);) {
      std::istringstream words(line);
      std::string name, plus_minus;
      Value value;
      if (!(words >> name >> value.value >> plus_minus >> value.error)) continue;
      if (plus_minus == "+-") values.push_back(value);
    }
    return values;
  }
  EgcCoef Stored(const std::string& name) {
    const auto workspace = std::make_unique<Workspace>();
    workspace->SkipLastProp = 1;
    SystemFileLayer files;
    CollectingDialogs dialogs;
    std::int16_t last_data_type = 0;
    FileContext context{files, dialogs, last_data_type};
    EXPECT_EQ(ParaFileRead(context, folder.Path(name), *workspace), kTrue);
    return workspace->DefaultProp.EGC;
  }
};

// The truth is that of the simulation. Of 25 x 2 values of Student's t distribution with 6 degrees
// of freedom one or two lie beyond three standard errors.
TEST_F(CalibrateTest, TheLineIsWithinThreeStandardErrorsOfTheTruth) {
  PutLines();
  int beyond = 0;
  for (int seed = 1; seed <= 25; ++seed) {
    Simulate("0.02,0.07,0", seed);
    const auto values = Coefficients(Calibrate().out);
    ASSERT_EQ(values.size(), 2u) << seed;
    beyond += std::abs(values[0].value - 0.02) > 3 * values[0].error ? 1 : 0;
    beyond += std::abs(values[1].value - 0.07) > 3 * values[1].error ? 1 : 0;
  }
  EXPECT_LE(beyond, 4);
}

// E = A + B (x + 1) + C (x + 1)^2 in powers of the index x.
TEST_F(CalibrateTest, TheParabolaIsWithinThreeStandardErrorsOfTheTruthInTheIndex) {
  PutLines();
  const double truth[] = {0.02 + 0.07 + 1e-7, 0.07 + 2e-7, 1e-7};
  int beyond = 0;
  for (int seed = 1; seed <= 25; ++seed) {
    Simulate("0.02,0.07,1e-7", seed);
    const auto values = Coefficients(Calibrate({"--quadratic"}).out);
    ASSERT_EQ(values.size(), 3u) << seed;
    for (std::size_t j = 0; j < 3; ++j) {
      beyond += std::abs(values[j].value - truth[j]) > 3 * values[j].error ? 1 : 0;
    }
  }
  EXPECT_LE(beyond, 6);
}

TEST_F(CalibrateTest, LinesAreFoundByTheirChannelsWhereTheFileHasAnotherCalibration) {
  Simulate("0.02,0.07,0");
  PutLines("8.80336,1257,a\n12.206065,1743,b\n13.647356,1949,c\n");
  const BatchRun run = Calibrate();
  EXPECT_EQ(run.status, 0);
  EXPECT_NEAR(Coefficients(run.out)[1].value, 0.007, 1e-6);
}

TEST_F(CalibrateTest, TheExpressEngineGivesTheSameLine) {
  Simulate();
  PutLines();
  const BatchRun run = Calibrate({"--engine", "express"});
  EXPECT_EQ(run.status, 0);
  EXPECT_NEAR(Coefficients(run.out)[1].value, 0.07, 2e-5);
}

TEST_F(CalibrateTest, ALineWithoutAPeakIsToldAndNothingIsStored) {
  Simulate();
  PutLines(kRows + "50,,nothing\n");
  const BatchRun run = Calibrate({"--store"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err,
            "dorvane-batch: ref.npd: 50 keV: no peak within 20 channels of 714.0 (--within)\n");
  EXPECT_THAT(run.out, HasSubstr("8 of 9 lines"));
  EXPECT_FALSE(folder.Has("syspara_a.xpr"));
}

TEST_F(CalibrateTest, OfTwoLinesThatClaimOnePeakTheNearerHasIt) {
  Simulate();
  PutLines("88.0336,1260,near\n88.1,1265,far\n122.06065,,Co-57\n");
  const BatchRun run = Calibrate();
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err,
            "dorvane-batch: ref.npd: 88.1 keV: nearer lines have the peaks within 20 channels of "
            "1265.0\n");
  PutLines("88.1,1265,far\n88.0336,1260,near\n122.06065,,Co-57\n");
  EXPECT_EQ(Calibrate().err, run.err);
}

// 73.9 keV lies at 1055.4, half way between the peaks of lead at 1039.8 and 1070.7.
TEST_F(CalibrateTest, ALineThatLosesItsPeakTakesTheNextOne) {
  Simulate();
  PutLines("74.9693,,Pb Ka1\n73.9,,between\n88.0336,,Cd-109\n");
  const BatchRun run = Calibrate();
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, ContainsRegex("1070[.][67][0-9]* +74[.]9693 .*Pb Ka1\n"));
  EXPECT_THAT(run.out, ContainsRegex("1039[.][78][0-9]* +73[.]9000 .*between\n"));
}

TEST_F(CalibrateTest, AFileWithoutCalibrationNeedsTheChannels) {
  Simulate();
  SpectrumRec record;
  ChannelBlock block;
  {
    SystemFileLayer files;
    CollectingDialogs dialogs;
    std::int16_t last_data_type = 0;
    FileContext context{files, dialogs, last_data_type};
    ASSERT_EQ(ReadNpdFile(context, folder.Path("ref.npd"), block, record), kTrue);
  }
  record.Prop.EGC = {};
  folder.Put("ref.npd", std::string(AsText(NpdImage(block, record))));
  PutLines("88.0336,1257,a\n122.06065,,b\n");
  EXPECT_EQ(Calibrate().err,
            "dorvane-batch: ref.npd: the file has no calibration; the table has to give the "
            "channel of 122.06065 keV\n");
  PutLines("88.0336,1257,a\n122.06065,1743,b\n");
  const BatchRun run = Calibrate();
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, HasSubstr("2 of 2 lines"));
}

TEST_F(CalibrateTest, StoredCoefficientsAreTheDefaultCalibrationInFull) {
  Simulate();
  PutLines();
  EXPECT_EQ(Calibrate({"--quadratic", "--store"}).status, 0);
  EXPECT_EQ(Calibrate({"--store", "mine.xpr"}).status, 0);
  EXPECT_NE(Stored("syspara_a.xpr")[2], 0);
  EXPECT_EQ(Stored("mine.xpr")[2], 0);
  EXPECT_NEAR(Stored("mine.xpr")[1], 0.07, 1e-5);
}

TEST_F(CalibrateTest, WhatElseAParameterFileHoldsStays) {
  Simulate();
  PutLines();
  Calibrate({"--store"});
  std::string bytes = folder.Get("syspara_a.xpr");
  bytes[4366] = 3;  // the peak shape
  folder.Put("syspara_a.xpr", bytes);
  Calibrate({"--store"});
  EXPECT_EQ(folder.Get("syspara_a.xpr"), bytes);
}

TEST_F(CalibrateTest, ABrokenParameterFileStaysAsItIs) {
  Simulate();
  PutLines();
  folder.Put("syspara_a.xpr", "00 cut short");
  const BatchRun run = Calibrate({"--store"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "dorvane-batch: ref.npd: syspara_a.xpr: Para File Read (Open Error)\n");
  EXPECT_EQ(folder.Get("syspara_a.xpr"), "00 cut short");
}

// Every call of the file layer fails once, or from then on, or the program dies there.
TEST_F(CalibrateTest, TheParameterFileIsWrittenWholeOrNotAtAllWhereverItFails) {
  Simulate();
  PutLines();
  Calibrate({"--store"});
  const std::string line = folder.Get("syspara_a.xpr");
  CalibrateOptions options;
  options.file = "ref.npd";
  options.lines = "lines.csv";
  options.form = CalibForm::Parabola;
  options.store = "syspara_a.xpr";
  Calibrate({"--quadratic", "--store", "other.xpr"});
  const std::string parabola = folder.Get("other.xpr");
  ASSERT_NE(line, parabola);
  for (const auto mode : {FailingFileLayer::Mode::FailingOnce, FailingFileLayer::Mode::FailingOn,
                          FailingFileLayer::Mode::Killing}) {
    int n = 0;
    for (bool hit = true; hit;) {
      folder.Put("syspara_a.xpr", line);
      SystemFileLayer files;
      FailingFileLayer failing(files, ++n, mode);
      std::ostringstream out, err;
      int status = 1;
      try {
        status = RunCalibrate(failing, options, out, err);
      } catch (const Killed&) {
      }
      hit = failing.Hit();
      const std::string stored = folder.Get("syspara_a.xpr");
      EXPECT_TRUE(stored == line || stored == parabola) << n;
      if (status == 0) {
        EXPECT_EQ(stored, parabola) << n;
      }
      EXPECT_EQ(status == 0, out.str().find("stored: ") != std::string::npos) << n;
      if (mode != FailingFileLayer::Mode::Killing) {
        EXPECT_EQ(status == 0, err.str().empty()) << n;
      }
    }
    EXPECT_GT(n, 10);
  }
}

TEST_F(CalibrateTest, NothingIsStoredUnasked) {
  Simulate();
  PutLines();
  Calibrate();
  EXPECT_FALSE(folder.Has("syspara_a.xpr"));
}

TEST_F(CalibrateTest, TooFewLinesFail) {
  Simulate();
  PutLines("88.0336\n");
  EXPECT_EQ(Calibrate().err,
            "dorvane-batch: ref.npd: a straight line needs two lines with peaks\n");
  PutLines("88.0336\n122.06065\n");
  EXPECT_EQ(Calibrate({"--quadratic"}).err,
            "dorvane-batch: ref.npd: a parabola needs three lines with peaks\n");
}

TEST_F(CalibrateTest, AsManyLinesAsCoefficientsHaveNoStandardErrors) {
  Simulate();
  PutLines("88.0336\n122.06065\n");
  EXPECT_THAT(Calibrate().out, HasSubstr("no standard errors: no more lines than coefficients"));
}

TEST_F(CalibrateTest, TheTableAndTheSpectrumAreToldWhereTheyFail) {
  Simulate();
  EXPECT_THAT(Calibrate().err, StartsWith("dorvane-batch: lines.csv: "));
  PutLines("x\n");
  EXPECT_EQ(Calibrate().err, "dorvane-batch: lines.csv: line 2: \"x\" is no number\n");
  PutLines();
  const BatchRun run = Run({"calibrate", "none.npd", "--lines", "lines.csv"});
  EXPECT_EQ(run.err, "dorvane-batch: none.npd: no such file\n");
  EXPECT_EQ(run.status, 1);
}

TEST_F(CalibrateTest, BadOptionsAreBadUsage) {
  Simulate();
  PutLines();
  EXPECT_EQ(Calibrate({"--engine", "other"}).status, 2);
  EXPECT_EQ(Calibrate({"--within", "-1"}).status, 2);
  EXPECT_EQ(Run({"calibrate", "ref.npd"}).status, 2);
}

TEST_F(CalibrateTest, QuietPrintsNothing) {
  Simulate();
  PutLines();
  EXPECT_EQ(Calibrate({"--quiet", "--store"}).out, "");
  EXPECT_TRUE(folder.Has("syspara_a.xpr"));
}

}  // namespace
}  // namespace dorvane
