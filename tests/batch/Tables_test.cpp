#include "batch/Tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>

#include "lattice/CalLattice.h"

namespace dorvane {
namespace {

using testing::HasSubstr;
using testing::Not;

Analysis OnePeak() {
  Analysis analysis;
  analysis.path = "a.npd";
  analysis.sample = "MgO";
  ListedPeak row;
  row.channel = 10;
  row.energy_kev = 50;
  row.d = 2.1;
  row.height = 100;
  row.fwhm_kev = 0.4;
  row.area = 1000;
  analysis.peaks.push_back(row);
  return analysis;
}

Analysis WithCell() {
  Analysis analysis = OnePeak();
  LatticeLine line;
  line.hkl = {2, 0, 0};
  line.d_obs = 2.1;
  line.d_cal = 2.0995;
  line.used = true;
  analysis.peaks[0].line = line;
  analysis.indexed = true;
  analysis.lattice.crystal = "MgO";
  analysis.lattice.lattice_type = kCubic;
  analysis.lattice.lines = {line};
  analysis.lattice.cell.emplace();
  analysis.lattice.cell->Direct[1] = 4.25f;
  analysis.lattice.cell->DirectErr[1] = 0.5f;
  return analysis;
}

TEST(Tables, CompactValueCountsTheErrorInTheLastPlaces) {
  EXPECT_EQ(CompactValue(4.7597, 0.0013), "4.7597(13)");
  EXPECT_EQ(CompactValue(4.7597, 0.0020), "4.760(2)");
  EXPECT_EQ(CompactValue(12.98, 0.19), "12.98(19)");
  EXPECT_EQ(CompactValue(1234, 30), "1234(30)");
}

TEST(Tables, CompactValueWithoutErrorStandsAlone) {
  EXPECT_EQ(CompactValue(4.2, 0), "4.2000");
  EXPECT_EQ(CompactValue(4.2, std::nan("")), "4.2000");
}

TEST(Tables, CsvRowHasAllItsFields) {
  EXPECT_EQ(PeakCsv(WithCell(), false, "\r\n"),
            "10.0000,50.00000,2.100000,100.00,0.40000,1000.0,2,0,0,2.099500,0.000500,yes\r\n");
}

TEST(Tables, CsvRowOfAPeakWithoutIndicesHasAsManyFields) {
  const std::string with = PeakCsv(WithCell(), false, "");
  const std::string without = PeakCsv(OnePeak(), false, "");
  EXPECT_EQ(std::count(with.begin(), with.end(), ','),
            std::count(without.begin(), without.end(), ','));
  const std::string heading = PeakCsvHeading(false, "");
  EXPECT_EQ(std::count(with.begin(), with.end(), ','),
            std::count(heading.begin(), heading.end(), ','));
}

TEST(Tables, CsvQuotesNamesThatNeedIt) {
  Analysis analysis = OnePeak();
  analysis.path = "a,\"b\".npd";
  EXPECT_THAT(PeakCsv(analysis, true, "\n"), testing::StartsWith("\"a,\"\"b\"\".npd\",10.0000"));
}

TEST(Tables, WidthThatNoFitFoundIsADash) {
  Analysis analysis = OnePeak();
  analysis.peaks[0].fwhm_kev = 8e12;
  EXPECT_THAT(TableText(analysis), HasSubstr(" -  "));
  EXPECT_THAT(TableText(analysis), Not(HasSubstr("8000000000000")));
}

TEST(Tables, HeadLineHasCellInCompactForm) {
  EXPECT_EQ(HeadLine(WithCell()), "MgO    a = 4.3(5) Å");
}

TEST(Tables, HeadLineIsEmptyWithoutACrystal) {
  EXPECT_EQ(HeadLine(OnePeak()), "");
}

TEST(Tables, JsonHasNullWhereNothingIsKnown) {
  const auto json = nlohmann::json::parse(LatticeJson(WithCell()));
  EXPECT_EQ(json["crystal"], "MgO");
  EXPECT_NEAR(json["cell"]["a"]["value"].get<double>(), 4.25, 1e-9);
  EXPECT_TRUE(json["pressure_GPa"].is_null());
  EXPECT_EQ(json["lines"][0]["hkl"], (std::vector<int>{2, 0, 0}));
}

TEST(Tables, JsonWithoutACrystalHasNoCell) {
  const auto json = nlohmann::json::parse(LatticeJson(OnePeak()));
  EXPECT_TRUE(json["crystal"].is_null());
  EXPECT_FALSE(json.contains("cell"));
}

TEST(Tables, JsonSurvivesTextsThatAreNoText) {
  Analysis analysis = OnePeak();
  analysis.sample = "\xff\xfe\x01";
  analysis.two_theta_deg = INFINITY;
  EXPECT_TRUE(nlohmann::json::accept(LatticeJson(analysis)));
}

}  // namespace
}  // namespace dorvane
