// The command "analyse": what it finds, what it writes, how it fails.
#include <gmock/gmock.h>

#include <cmath>
#include <nlohmann/json.hpp>

#include "batch/BatchFixture.h"
#include "support/CodePage.h"

namespace dorvane {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class AnalyseTest : public BatchTest {
 protected:
  static BatchRun Analyse(std::vector<std::string> words) {
    words.insert(words.begin(), "analyse");
    return Run(words);
  }
  json Lattice(const std::string& name) const {
    return json::parse(folder.Get(name + "_lattice.json"));
  }

  // Whether nothing but the spectra and the samples is there: no result, no temporary.
  void ExpectNoResults(const std::vector<std::string>& spectra) const {
    for (const std::string& name : folder.Names()) {
      EXPECT_TRUE(name == "samples" ||
                  std::find(spectra.begin(), spectra.end(), name) != spectra.end())
          << name;
    }
  }
};

// What both engines find.

class BothEngines : public AnalyseTest, public testing::WithParamInterface<const char*> {
 protected:
  static BatchRun Analyse(std::vector<std::string> words) {
    words.insert(words.end(), {"--engine", GetParam(), "--overwrite"});
    return AnalyseTest::Analyse(words);
  }
};
INSTANTIATE_TEST_SUITE_P(Engines, BothEngines, testing::Values("express", "nax"),
                         [](const auto& name) { return std::string(name.param); });

// Literature cell of corundum: a = 4.7587 angstrom.
TEST_P(BothEngines, CorundumGivesItsCell) {
  ASSERT_EQ(Analyse({"samples/corundum_ambient.npd", "--crystal", "Al2O3"}).status, 0);
  const json lattice = Lattice("corundum_ambient");
  EXPECT_NEAR(lattice["cell"]["a"]["value"].get<double>(), 4.760, 0.002);
  int near = 0;
  for (const json& line : lattice["lines"])
    near += std::abs(line["difference_A"].get<double>()) < 0.001;
  EXPECT_GE(near, 8);
}

TEST_P(BothEngines, MagnesiumOxideUnderLoadGivesItsColdPressure) {
  ASSERT_EQ(Analyse({"samples/mgo_under_load.npd", "--crystal", "MgO", "--marker", "--temperature",
                     "27", "--use-lines", "2 0 0,2 2 0"})
                .status,
            0);
  const json lattice = Lattice("mgo_under_load");
  EXPECT_NEAR(lattice["V_over_V0"]["value"].get<double>(), 0.962, 0.002);
  EXPECT_GE(lattice["pressure_GPa"]["value"].get<double>(), 6);
  EXPECT_LE(lattice["pressure_GPa"]["value"].get<double>(), 7.2);
}

TEST_P(BothEngines, SimulatedSaltGivesThePressureItWasMadeWith) {
  ASSERT_EQ(
      Analyse({"samples/nacl_5GPa.npd", "--crystal", "NACL", "--marker", "--judge", "0.16"}).status,
      0);
  EXPECT_NEAR(Lattice("nacl_5GPa")["pressure_GPa"]["value"].get<double>(), 5.0, 0.1);
}

TEST_P(BothEngines, OtherSeedsOfSaltGiveThePressureToo) {
  for (const std::string seed : {"11", "12", "13"}) {
    Run({"simulate", "--crystal", "NACL", "--pressure", "5", "--counts", "100000", "--seed", seed,
         "--out", "s.npd", "--overwrite"});
    Analyse({"s.npd", "--marker", "--judge", "0.16"});
    EXPECT_NEAR(Lattice("s")["pressure_GPa"]["value"].get<double>(), 5.0, 0.1) << seed;
  }
}

TEST_P(BothEngines, ChosenLinesOfSaltGiveThePressureWithoutRejection) {
  ASSERT_EQ(Analyse({"samples/nacl_5GPa.npd", "--marker", "--judge", "0.15", "--reject", "0",
                     "--threshold", "5", "--use-lines", "2 0 0,2 2 0"})
                .status,
            0);
  EXPECT_NEAR(Lattice("nacl_5GPa")["pressure_GPa"]["value"].get<double>(), 5.0, 0.1);
}

TEST_P(BothEngines, GoldAtAmbientConditionsHasNoPressure) {
  ASSERT_EQ(Analyse({"samples/gold_ambient.npd", "--marker"}).status, 0);
  EXPECT_NEAR(Lattice("gold_ambient")["pressure_GPa"]["value"].get<double>(), 0.0, 0.05);
}

// The options of the scan.

TEST_F(AnalyseTest, TheScanIsTheEngineWhereNoneIsNamed) {
  const BatchRun unnamed = Analyse({"samples/gold_ambient.npd", "--format", "csv"});
  const BatchRun named = Analyse({"samples/gold_ambient.npd", "--engine", "nax", "--bg-coefficient",
                                  "1", "--peak-width", "20", "--format", "csv", "--overwrite"});
  EXPECT_EQ(unnamed.out, named.out);
  EXPECT_EQ(Lattice("gold_ambient")["engine"], "nax");
}

TEST_F(AnalyseTest, AHigherCoefficientFindsFewerPeaks) {
  const auto peaks = [&](const char* coefficient) {
    Analyse({"samples/corundum_ambient.npd", "--bg-coefficient", coefficient, "--overwrite"});
    return Lattice("corundum_ambient")["peaks"].get<int>();
  };
  EXPECT_GT(peaks("1"), peaks("5"));
  EXPECT_GT(peaks("5"), peaks("20"));
}

TEST_F(AnalyseTest, ACoefficientThatNothingPassesIsToldAndLeavesNoPeaks) {
  const BatchRun run =
      Analyse({"samples/gold_ambient.npd", "--bg-coefficient", "1e9", "--format", "json"});
  EXPECT_THAT(json::parse(run.out)[0]["notes"].dump(), HasSubstr("NO PEAKS ARE FOUND"));
  EXPECT_EQ(Lattice("gold_ambient")["peaks"], 0);
}

TEST_F(AnalyseTest, ThePeakWidthChangesTheGroups) {
  const BatchRun narrow =
      Analyse({"samples/corundum_ambient.npd", "--peak-width", "5", "--format", "csv"});
  const BatchRun wide = Analyse(
      {"samples/corundum_ambient.npd", "--peak-width", "60", "--format", "csv", "--overwrite"});
  EXPECT_NE(narrow.out, wide.out);
}

TEST_F(AnalyseTest, AScanThatALongGroupEndsEarlyIsTold) {
  const BatchRun run =
      Analyse({"samples/corundum_ambient.npd", "--peak-width", "250", "--format", "json"});
  EXPECT_THAT(json::parse(run.out)[0]["notes"].dump(), HasSubstr("SCAN ENDED EARLY"));
}

TEST_F(AnalyseTest, ChannelsBeyondTheScanAreTold) {
  Run({"simulate", "--crystal", "Si", "--channels", "8192", "--egc", "0,0.016,0", "--out",
       "long.npd"});
  EXPECT_THAT(Analyse({"long.npd"}).out, HasSubstr("channels above 4096 are not scanned"));
  const BatchRun express = Analyse({"long.npd", "--engine", "express", "--overwrite"});
  EXPECT_THAT(express.out, Not(HasSubstr("not scanned")));
}

TEST_F(AnalyseTest, CrystalComesFromTheSampleNameUpToItsBlank) {
  ASSERT_EQ(Analyse({"samples/mgo_under_load.npd"}).status, 0);
  EXPECT_EQ(Lattice("mgo_under_load")["crystal"], "MgO");
}

TEST_F(AnalyseTest, UnknownSampleGivesPeaksOnlyWithAHint) {
  Run({"simulate", "--crystal", "Si", "--out", "s.npd"});
  std::string text = folder.Get("s.npd");
  text.replace(text.find("Profile number,Si"), 17, "Profile number,??");
  folder.Put("s.npd", text);
  const BatchRun run = Analyse({"s.npd"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, HasSubstr("name one with --crystal"));
  EXPECT_TRUE(Lattice("s")["crystal"].is_null());
}

TEST_F(AnalyseTest, LeavesThreeResults) {
  Analyse({"samples/gold_ambient.npd", "--quiet"});
  EXPECT_THAT(folder.Names(), ElementsAre("gold_ambient.png", "gold_ambient_lattice.json",
                                          "gold_ambient_peaks.csv", "samples"));
  EXPECT_THAT(folder.Get("gold_ambient.png"), StartsWith("\x89PNG"));
  EXPECT_THAT(folder.Get("gold_ambient_peaks.csv"), StartsWith("channel,energy_keV,d_A,"));
}

TEST_F(AnalyseTest, PictureIsOfTheKindAskedFor) {
  Analyse({"samples/gold_ambient.npd", "--picture", "pdf"});
  EXPECT_THAT(folder.Get("gold_ambient.pdf"), StartsWith("%PDF"));
  Analyse({"samples/gold_ambient.npd", "--picture", "svg", "--overwrite", "--log-scale"});
  EXPECT_THAT(folder.Get("gold_ambient.svg"), HasSubstr("<svg"));
}

TEST_F(AnalyseTest, FolderOfTheResultsIsMade) {
  Analyse({"samples/gold_ambient.npd", "--out", "new/results", "--quiet"});
  EXPECT_TRUE(folder.Has("new/results/gold_ambient.png"));
}

TEST_F(AnalyseTest, NumberOfASeriesStaysInTheName) {
  folder.Put("run.001", "no spectrum");
  folder.Put("run.002", "no spectrum");
  const BatchRun run = Analyse({"run.001", "run.002"});
  EXPECT_THAT(run.err, Not(HasSubstr("belongs to")));
}

TEST_F(AnalyseTest, ResultsAreNeverReplacedUnasked) {
  for (const char* name :
       {"gold_ambient.png", "gold_ambient_lattice.json", "gold_ambient_peaks.csv"}) {
    folder.Put(name, "mine");
    const BatchRun run = Analyse({"samples/gold_ambient.npd"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, std::string("dorvane-batch: samples/gold_ambient.npd: ") + name +
                           " exists already (--overwrite replaces it)\n");
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(folder.Names(), ElementsAre(name, "samples"));
    std::filesystem::remove(folder.Path(name));
  }
}

TEST_F(AnalyseTest, OverwriteReplacesResults) {
  folder.Put("gold_ambient.png", "old");
  EXPECT_EQ(Analyse({"samples/gold_ambient.npd", "--overwrite"}).status, 0);
  EXPECT_NE(folder.Get("gold_ambient.png"), "old");
}

TEST_F(AnalyseTest, LogTellsTheLatticeWorkOfEachFileInTheirOrder) {
  const BatchRun run = Analyse({"samples/corundum_ambient.npd", "samples/mgo_under_load.npd",
                                "--crystal", "Al2O3", "--log", "work.csv", "--quiet"});
  EXPECT_EQ(run.status, 0);
  const std::string text = FromCodePage(folder.Get("work.csv"));
  EXPECT_THAT(text, StartsWith("\"*******************corundum_ambientLatticeFitting Log Start"));
  EXPECT_THAT(text, HasSubstr("\"\",\"HEX\",\"Al2O3\"\r\n"));
  EXPECT_THAT(text, HasSubstr("\"\",\"HEXAGONAL\"\r\n\"\",\"A    =\",\"4.76"));
  EXPECT_GT(text.find("mgo_under_loadLatticeFitting Log Start"),
            text.find("corundum_ambientLatticeFitting Log Ende"));
}

TEST_F(AnalyseTest, LogIsNotReplacedUnasked) {
  folder.Put("work.csv", "mine");
  const std::vector<std::string> words{"samples/corundum_ambient.npd", "--log", "work.csv"};
  EXPECT_THAT(Analyse(words).err, HasSubstr("--log work.csv: exists already"));
  EXPECT_EQ(folder.Get("work.csv"), "mine");
  ExpectNoResults({"work.csv"});
}

TEST_F(AnalyseTest, LogThatCannotBeWrittenFailsTheRun) {
  const BatchRun run =
      Analyse({"samples/gold_ambient.npd", "--log", "nowhere/work.csv", "--quiet"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("dorvane-batch: log nowhere/work.csv: "));
  EXPECT_TRUE(folder.Has("gold_ambient.png"));
}

TEST_F(AnalyseTest, TwoFilesOfOneNameDoNotShareResults) {
  Run({"simulate", "--crystal", "Si", "--out", "gold_ambient.npd"});
  const BatchRun run = Analyse({"samples/gold_ambient.npd", "gold_ambient.npd", "--quiet"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err,
            "dorvane-batch: gold_ambient.npd: gold_ambient_peaks.csv belongs to "
            "samples/gold_ambient.npd already\n");
  EXPECT_EQ(Lattice("gold_ambient")["crystal"], "Au");
}

TEST_F(AnalyseTest, OneFailedFileLeavesTheOthersDone) {
  const BatchRun run =
      Analyse({"none.npd", "samples/gold_ambient.npd", "samples/corundum_ambient.npd", "--quiet"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "dorvane-batch: none.npd: no such file\n");
  EXPECT_TRUE(folder.Has("gold_ambient.png"));
  EXPECT_TRUE(folder.Has("corundum_ambient.png"));
}

TEST_F(AnalyseTest, OutputComesInTheOrderOfTheFiles) {
  const BatchRun run = Analyse(
      {"samples/nacl_5GPa.npd", "samples/corundum_ambient.npd", "samples/gold_ambient.npd"});
  const auto first = run.out.find("samples/nacl_5GPa.npd");
  const auto second = run.out.find("samples/corundum_ambient.npd");
  const auto third = run.out.find("samples/gold_ambient.npd");
  EXPECT_LT(first, second);
  EXPECT_LT(second, third);
  EXPECT_NE(third, std::string::npos);
}

TEST_F(AnalyseTest, ManyFilesAtOnceGiveWhatEachGivesAlone) {
  std::vector<std::string> files;
  for (int i = 1; i <= 8; ++i) {
    files.push_back("s" + std::to_string(i) + ".npd");
    Run({"simulate", "--crystal", "Al2O3", "--counts", "20000", "--seed", std::to_string(i),
         "--out", files.back()});
  }
  std::vector<std::string> words = files;
  words.insert(words.end(), {"--out", "all", "--quiet"});
  ASSERT_EQ(Analyse(words).status, 0);
  for (int i : {1, 8}) {
    const std::string name = "s" + std::to_string(i);
    Analyse({name + ".npd", "--out", "one", "--quiet"});
    for (const char* end : {".png", "_lattice.json", "_peaks.csv"}) {
      EXPECT_EQ(folder.Get("all/" + name + end), folder.Get("one/" + name + end)) << name << end;
    }
  }
}

TEST_F(AnalyseTest, JsonOfSeveralFilesIsOneArray) {
  const BatchRun run = Analyse(
      {"samples/nacl_5GPa.npd", "none.npd", "samples/gold_ambient.npd", "--format", "json"});
  const json list = json::parse(run.out);
  ASSERT_EQ(list.size(), 2u);
  EXPECT_EQ(list[1]["file"], "samples/gold_ambient.npd");
}

TEST_F(AnalyseTest, QuietPrintsNothing) {
  EXPECT_EQ(Analyse({"samples/gold_ambient.npd", "--quiet"}).out, "");
}

TEST_F(AnalyseTest, CompressedMarkerIsFoundWithoutTypingARange) {
  // the truth of the simulation is 5 GPa; its 111 lies 0.16 angstrom below the library's
  const BatchRun run = Analyse({"samples/nacl_5GPa.npd", "--marker", "--format", "json"});
  const json result = json::parse(run.out)[0];
  EXPECT_NEAR(result["pressure_GPa"]["value"].get<double>(), 5.0, 0.1);
  EXPECT_THAT(result["notes"].dump(), HasSubstr("judgment range widened to 0.16 angstrom"));
}

TEST_F(AnalyseTest, ATypedRangeIsNotWidened) {
  const BatchRun run =
      Analyse({"samples/nacl_5GPa.npd", "--marker", "--judge", "0.03", "--format", "json"});
  EXPECT_THAT(run.out, Not(HasSubstr("widened")));
}

TEST_F(AnalyseTest, ARangeThatExplainsTheSpectrumIsNotWidened) {
  const BatchRun run = Analyse({"samples/gold_ambient.npd", "--format", "json"});
  EXPECT_THAT(run.out, Not(HasSubstr("widened")));
}

TEST_F(AnalyseTest, CellThatWasAskedForAndIsMissingIsAFailureWithPeaks) {
  const BatchRun run =
      Analyse({"samples/nacl_5GPa.npd", "--crystal", "NACL", "--quiet", "--judge", "0.0001"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, StartsWith("dorvane-batch: samples/nacl_5GPa.npd: no cell: "));
  EXPECT_THAT(folder.Get("nacl_5GPa_peaks.csv"), HasSubstr("\r\n"));
}

TEST_F(AnalyseTest, PressureOfACrystalWithoutScaleIsAFailure) {
  const BatchRun run = Analyse({"samples/corundum_ambient.npd", "--marker", "--quiet"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(
      run.err,
      "dorvane-batch: samples/corundum_ambient.npd: no pressure: no scale has the name Al2O3\n");
}

TEST_F(AnalyseTest, LineThatTheCrystalDoesNotHaveIsAFailure) {
  const BatchRun run = Analyse({"samples/gold_ambient.npd", "--use-lines", "1 0 0"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err,
            "dorvane-batch: samples/gold_ambient.npd: Au has no line 1 0 0 in the library\n");
}

TEST_P(BothEngines, RangeLimitsThePeaks) {
  Analyse({"samples/corundum_ambient.npd", "--range", "600:900", "--quiet"});
  const std::string csv = folder.Get("corundum_ambient_peaks.csv");
  EXPECT_THAT(csv,
              AllOf(HasSubstr("\n659.8"), Not(HasSubstr("\n483.8")), Not(HasSubstr("\n1050.8"))));
}

TEST_P(BothEngines, EveryCurveCanBeFitted) {
  for (const char* curve : {"raw", "smooth", "removed"}) {
    EXPECT_EQ(Analyse({"samples/corundum_ambient.npd", "--fit-on", curve, "--background", "30,10"})
                  .status,
              0);
    EXPECT_NEAR(Lattice("corundum_ambient")["cell"]["a"]["value"].get<double>(), 4.760, 0.002)
        << curve;
  }
}

// In this spectrum the search finds a peak whose normal matrix has no finite inverse.
TEST_F(AnalyseTest, PeakOnWhichTheEngineFaultsIsLeftOut) {
  Run({"simulate", "--crystal", "MgO", "--pressure", "10", "--counts", "30000", "--seed", "5",
       "--out", "s.npd"});
  const BatchRun run =
      Analyse({"s.npd", "--engine", "express", "--fit-on", "raw", "--marker", "--judge", "0.2"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, HasSubstr("can't be fitted and is left out: Overflow"));
  EXPECT_NEAR(Lattice("s")["pressure_GPa"]["value"].get<double>(), 10, 0.1);
}

TEST_F(AnalyseTest, LibraryOfTheUserServes) {
  std::string library;
  for (int i = 0; i < 10; ++i) library += "free line\r\n";
  folder.Put(
      "mine.dat",
      library + "1\r\n\"Salt\",0,5.6402,5.6402,5.6402,90,90,90\r\n2,0,0\r\n2,2,0\r\n0,0,0\r\n");
  const BatchRun run = Analyse({"samples/nacl_5GPa.npd", "--crystal", "Salt", "--crystal-file",
                                "mine.dat", "--judge", "0.15", "--threshold", "5"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(Lattice("nacl_5GPa")["crystal"], "Salt");
}

// Files that are none.

TEST_F(AnalyseTest, BrokenFilesFailWithOneLineAndLeaveNothing) {
  folder.Put("empty.npd", "");
  folder.Put("text.npd", "this is no spectrum\n");
  folder.Put("zeros.xbm", std::string(5000, '\0'));
  folder.Put("ones.xba", std::string(50000, '\xff'));
  folder.Put("short.001", "abc");
  folder.Put("picture.gif", "GIF89a");
  folder.Put("none", "x");
  std::filesystem::create_directory(folder.Path("folder.npd"));
  const std::vector<std::string> files{"empty.npd", "text.npd",    "zeros.xbm", "ones.xba",
                                       "short.001", "picture.gif", "none",      "folder.npd"};
  const BatchRun run = Analyse(files);
  EXPECT_EQ(run.status, 1);
  std::istringstream lines(run.err);
  std::string line;
  for (const std::string& file : files) {
    std::getline(lines, line);
    EXPECT_THAT(line, StartsWith("dorvane-batch: " + file + ": "));
  }
  EXPECT_FALSE(std::getline(lines, line));
  EXPECT_EQ(run.out, "");
  ExpectNoResults(files);
}

TEST_F(AnalyseTest, SpectrumCutAnywhereNeverCrashes) {
  const std::string whole = folder.Get("samples/corundum_ambient.npd");
  for (std::size_t length = 1; length < whole.size(); length += whole.size() / 40) {
    folder.Put("cut.npd", whole.substr(0, length));
    const BatchRun run = Analyse({"cut.npd", "--overwrite", "--quiet"});
    EXPECT_EQ(run.status, 1) << length;
    EXPECT_THAT(run.err, StartsWith("dorvane-batch: cut.npd: ")) << length;
  }
}

TEST_F(AnalyseTest, HostileNumbersNeverCrash) {
  const std::string whole = folder.Get("samples/corundum_ambient.npd");
  const auto with = [&](const std::string& label, const std::string& value) {
    std::string text = whole;
    const auto at = text.find(label) + label.size();
    return text.replace(at, text.find("\r\n", at) - at, value);
  };
  for (const std::string& text :
       {with("EGC0,", "1e308"), with("EGC1,", "-1e308"), with("EGC1,", "0"), with("EGC2,", "1e300"),
        with("2Theta(deg),", "0"), with("2Theta(deg),", "-1e9"), with("2Theta(deg),", "360"),
        with("Profile number,", std::string(5000, 'x')), with("Profile number,", "\x81\xff,,\t"),
        with("1000,64.8347,", "2147483647"), with("1000,64.8347,", "-2147483648"),
        with("Data length, ", "8"), with("Data length, ", "1"), with("Data length, ", "0"),
        with("Data length, ", "-5"), with("Data length, ", "9000"),
        with("Record length,", "30000")}) {
    folder.Put("hostile.npd", text);
    const BatchRun run = Analyse(
        {"hostile.npd", "--crystal", "Al2O3", "--overwrite", "--quiet", "--background", "20,20"});
    EXPECT_TRUE(run.status == 0 || run.status == 1);
    EXPECT_EQ(run.status == 1, !run.err.empty());
  }
}

TEST_F(AnalyseTest, FlatSpectraNeverCrash) {
  const std::string whole = folder.Get("samples/corundum_ambient.npd");
  const std::string head = whole.substr(0, whole.find("1,0.0874"));
  for (const std::string count : {"0", "1", "7", "1000000000"}) {
    std::string text = head;
    for (int i = 1; i <= 2048; ++i) text += std::to_string(i) + ",0," + count + "\r\n";
    folder.Put("flat.npd", text);
    const BatchRun run = Analyse({"flat.npd", "--overwrite", "--quiet"});
    EXPECT_TRUE(run.status == 0 || run.status == 1) << count;
  }
}

TEST_F(AnalyseTest, ResultsThatCannotBeWrittenFailWithTheirName) {
  std::filesystem::create_directory(folder.Path("gold_ambient_lattice.json"));
  const BatchRun run = Analyse({"samples/gold_ambient.npd", "--overwrite"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(
      run.err,
      StartsWith("dorvane-batch: samples/gold_ambient.npd: result gold_ambient_lattice.json: "));
  EXPECT_THAT(folder.Names(), ElementsAre("gold_ambient_lattice.json", "samples"));
}

// The command line.

TEST_F(AnalyseTest, BadUsageHasStatusTwoAndDoesNothing) {
  for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
           {},
           {"analyse"},
           {"unknown"},
           {"samples/gold_ambient.npd"},
           {"analyse", "samples/gold_ambient.npd", "--crystal", "Gold"},
           {"analyse", "samples/gold_ambient.npd", "--crystal-file", "none.dat"},
           {"analyse", "samples/gold_ambient.npd", "--judge", "0"},
           {"analyse", "samples/gold_ambient.npd", "--judge", "wide"},
           {"analyse", "samples/gold_ambient.npd", "--temperature", "warm"},
           {"analyse", "samples/gold_ambient.npd", "--range", "9"},
           {"analyse", "samples/gold_ambient.npd", "--use-lines", "2 0"},
           {"analyse", "samples/gold_ambient.npd", "--smooth", "6"},
           {"analyse", "samples/gold_ambient.npd", "--smooth", "none"},
           {"analyse", "samples/gold_ambient.npd", "--threshold", "21"},
           {"analyse", "samples/gold_ambient.npd", "--background", "20"},
           {"analyse", "samples/gold_ambient.npd", "--fit-on", "fit"},
           {"analyse", "samples/gold_ambient.npd", "--engine", "steam"},
           {"analyse", "samples/gold_ambient.npd", "--bg-coefficient", "-1"},
           {"analyse", "samples/gold_ambient.npd", "--bg-coefficient", "high"},
           {"analyse", "samples/gold_ambient.npd", "--peak-width", "0"},
           {"analyse", "samples/gold_ambient.npd", "--peak-width", "251"},
           {"analyse", "samples/gold_ambient.npd", "--picture", "gif"},
           {"analyse", "samples/gold_ambient.npd", "--format", "xml"},
           {"analyse", "samples/gold_ambient.npd", "--no-such-option"},
           {"analyse", "samples/gold_ambient.npd", "--out", "samples/README.md"}}) {
    const BatchRun run = Run(words);
    EXPECT_EQ(run.status, 2) << testing::PrintToString(words);
    EXPECT_NE(run.err, "") << testing::PrintToString(words);
    EXPECT_EQ(run.out, "") << testing::PrintToString(words);
  }
  ExpectNoResults({});
}

TEST_F(AnalyseTest, HelpAndVersionSucceed) {
  const BatchRun help = Run({"analyse", "--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.out, AllOf(HasSubstr("--crystal"), HasSubstr("--overwrite")));
  const BatchRun version = Run({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_THAT(version.out, StartsWith("dorvane-batch "));
}

}  // namespace
}  // namespace dorvane
