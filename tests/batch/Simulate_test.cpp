// The command "simulate".
#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "batch/BatchFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class SimulateTest : public BatchTest {
 protected:
  BatchRun Simulate(std::vector<std::string> more) {
    std::vector<std::string> words{"simulate", "--crystal", "NACL", "--out", "s.npd"};
    words.insert(words.end(), more.begin(), more.end());
    return Run(words);
  }
  nlohmann::json Truth() const { return nlohmann::json::parse(folder.Get("s.json")); }
};

TEST_F(SimulateTest, WritesSpectrumAndTruth) {
  EXPECT_EQ(Simulate({}).status, 0);
  EXPECT_THAT(folder.Names(), ElementsAre("s.json", "s.npd", "samples"));
}

TEST_F(SimulateTest, TruthHasPressureCellAndLines) {
  Simulate({"--pressure", "5"});
  EXPECT_NEAR(Truth()["pressure_GPa"].get<double>(), 5, 1e-6);
  EXPECT_EQ(Truth()["lines"][0]["hkl"], (std::vector<int>{1, 1, 1}));
  const double a = Truth()["cell"][0];
  EXPECT_NEAR(Truth()["lines"][0]["d_A"].get<double>(), a / std::sqrt(3), 1e-6);
}

TEST_F(SimulateTest, EqualOptionsGiveEqualFiles) {
  Simulate({"--seed", "7"});
  const std::string first = folder.Get("s.npd");
  Simulate({"--seed", "7", "--overwrite"});
  EXPECT_EQ(folder.Get("s.npd"), first);
}

TEST_F(SimulateTest, ExistingFilesStayWithoutOverwrite) {
  folder.Put("s.json", "mine");
  const BatchRun run = Simulate({});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "dorvane-batch: s.json exists already (--overwrite replaces it)\n");
  EXPECT_EQ(folder.Get("s.json"), "mine");
  EXPECT_FALSE(folder.Has("s.npd"));
}

TEST_F(SimulateTest, FolderThatIsMissingFailsWithItsName) {
  const BatchRun run = Run({"simulate", "--crystal", "NACL", "--out", "none/s.npd"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("none/s.npd"));
}

TEST_F(SimulateTest, FluorescenceLinesAreInTheTruth) {
  Simulate({"--fluorescence", "Au:0.4"});
  const nlohmann::json last = Truth()["lines"].back();
  EXPECT_EQ(last["kind"], "fluorescence");
  EXPECT_EQ(last["name"], "Au Kb1");
}

TEST_F(SimulateTest, WhatCannotBeIsBadUsage) {
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"--pressure", "1e9"},
                                             {"--pressure", "1", "--volume-ratio", "0.9"},
                                             {"--counts", "1000", "--time", "5"},
                                             {"--cell", "1,2,3"},
                                             {"--egc", "0,0,0"},
                                             {"--channels", "9000"},
                                             {"--two-theta", "0"},
                                             {"--fluorescence", "Zz"},
                                             {"--fluorescence", "Au:x"},
                                             {"--crystal", "Gold"},
                                             {"--out", "s.xbm"},
                                             {"--seed", "-1"},
                                             {"--counts", "abc"}}) {
    const BatchRun run = Simulate(words);
    EXPECT_EQ(run.status, 2) << words[0] << " " << words[1];
    EXPECT_NE(run.err, "");
    EXPECT_FALSE(folder.Has("s.npd")) << words[0];
  }
}

TEST_F(SimulateTest, SourcesAndFluorescenceMakeAReferenceSpectrumWithoutACrystal) {
  const BatchRun run =
      Run({"simulate", "--sources", "Am-241:1", "--fluorescence", "Cu:0.5", "--out", "s.npd"});
  EXPECT_EQ(run.out, "s.npd: 5 lines; truth in s.json\n");
  EXPECT_FALSE(Truth().contains("crystal"));
  EXPECT_EQ(Truth()["lines"][3]["name"], "Am-241 59.5");
}

TEST_F(SimulateTest, WithoutACrystalThereHasToBeALineAndNoPressure) {
  EXPECT_EQ(Run({"simulate", "--out", "s.npd"}).status, 2);
  EXPECT_EQ(Run({"simulate", "--sources", "Am-241", "--pressure", "1", "--out", "s.npd"}).status,
            2);
  EXPECT_EQ(Run({"simulate", "--sources", "Co-60", "--out", "s.npd"}).status, 2);
  EXPECT_EQ(Run({"simulate", "--sources", "Am-241:x", "--out", "s.npd"}).status, 2);
}

TEST_F(SimulateTest, QuietPrintsNothing) {
  EXPECT_EQ(Simulate({"--quiet"}).out, "");
}

}  // namespace
}  // namespace dorvane
