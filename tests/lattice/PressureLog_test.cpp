#include "lattice/PressureLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "lattice/Pressure.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const char kShortBanner[] = "************Caluclate Puressure   **************************";
const char kLongBanner[] = "************Caluclate Puressure   *****************************";

LogRecords Written(const std::string& name, const std::string& pressure = "1.5+-0.1",
                   std::int16_t unit_index = 0) {
  return WritePressureLog(name, pressure, "27.0", unit_index);
}

TEST(PressureLog, WritesBannerHeadingResultAndAnEmptyRecord) {
  EXPECT_THAT(
      Written("NACL", "5.00000+-0.01000"),
      ElementsAre(LogRecord{kShortBanner}, LogRecord{"******** DECKER PRESSURE AT T=27.0℃ ***"},
                  LogRecord{"P(GPA)= ", "5.00000", "+-", "0.01000"}, LogRecord{""}));
}

TEST(PressureLog, TellsKelvinByItsSign) {
  for (const std::int16_t unit : {-1, 1, 2}) {
    EXPECT_EQ(Written("NACL", "1+-1", unit)[1][0], "******** DECKER PRESSURE AT T=27.0Ｋ ***");
  }
}

TEST(PressureLog, TheTemperatureIsTheTextAsTyped) {
  EXPECT_EQ(WritePressureLog("Au", "1+-1", " 027 ", 0)[1][0],
            "******** ANDERSON SCALE AT T= 027 ℃ ***");
}

TEST(PressureLog, EachScaleHasItsBannerAndHeading) {
  const auto expect = [](const char* name, const char* banner, const char* scale) {
    const auto records = Written(name);
    ASSERT_EQ(records.size(), 4u) << name;
    EXPECT_EQ(records[0][0], banner) << name;
    EXPECT_EQ(records[1][0], "******** " + std::string(scale) + " AT T=27.0℃ ***") << name;
  };
  for (const char* name : {"NACL", "NaCl", "nacl"}) expect(name, kShortBanner, "DECKER PRESSURE");
  for (const char* name : {"PT", "Pt", "pt"}) expect(name, kShortBanner, "JAMIESON SCALE");
  for (const char* name : {"MgO", "MGO"}) expect(name, kShortBanner, "JAMIESON SCALE");
  for (const char* name : {"AU", "Au", "au"}) expect(name, kLongBanner, "ANDERSON SCALE");
  for (const char* name : {"PT_B", "Pt_B", "pt_b"}) expect(name, kLongBanner, "Burch_m SCALE");
  for (const char* name : {"hBN", "HBN"}) expect(name, kLongBanner, "Burch_m SCALE");
}

TEST(PressureLog, NamesOfTheLogAloneAreMeantToLogAnOldText) {
  for (const char* name : {"NaCl", "au", "pt", "HBN", "pt_b"}) {
    EXPECT_EQ(FindScale(name), nullptr) << name;
    EXPECT_EQ(Written(name, "9.9+-0.9")[2][1], "9.9") << name;
  }
}

TEST(PressureLog, PtBInMixedCaseIsMeantToBeCalculatedAndNotLogged) {
  EXPECT_NE(FindScale("pt_B"), nullptr);
  EXPECT_THAT(Written("pt_B"), IsEmpty());
}

TEST(PressureLog, TheVinetScaleIsMeantToLogNothing) {
  for (const char* name : {"PT_H", "pt_H", "Pt_H", "pt_h"}) EXPECT_THAT(Written(name), IsEmpty());
}

TEST(PressureLog, AnUnknownNameWritesNothing) {
  EXPECT_THAT(Written("Fe"), IsEmpty());
}

TEST(PressureLog, TheNameCountsUpToItsFirstBlank) {
  EXPECT_EQ(Written("NACL B1 phase").size(), 4u);
}

TEST(PressureLog, TheResultIsTrimmedAndTheErrorCutToTenCharacters) {
  EXPECT_EQ(Written("Au", "  12.5+-0.123456789012 ")[2],
            (LogRecord{"P(GPA)= ", "12.5", "+-", "0.12345678"}));
}

TEST(PressureLog, ANegativeErrorKeepsItsSign) {
  EXPECT_EQ(Written("PT_B", "-1.00000+--0.02000")[2],
            (LogRecord{"P(GPA)= ", "-1.00000", "+-", "-0.02000"}));
}

TEST(PressureLog, ATextWithoutAPlusIsAllPressure) {
  EXPECT_EQ(Written("Au", "12.5")[2], (LogRecord{"P(GPA)= ", "12.5", "+-", ""}));
  EXPECT_EQ(Written("Au", "")[2], (LogRecord{"P(GPA)= ", "", "+-", ""}));
  EXPECT_EQ(Written("Au", "12.5+")[2], (LogRecord{"P(GPA)= ", "12.5", "+-", ""}));
}

}  // namespace
}  // namespace dorvane
