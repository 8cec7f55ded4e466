#include "batch/LineTable.h"

#include <gtest/gtest.h>

#include "batch/BatchError.h"

namespace dorvane {
namespace {

std::string FailureOf(std::string_view text) {
  try {
    ParseLineTable(text);
  } catch (const BatchError& error) {
    return error.what();
  }
  return "";
}

TEST(LineTable, ColumnsStandInAnyOrder) {
  const auto lines = ParseLineTable("name,other,channel,energy_keV\nAm-241,x,850.3,59.5409\n");
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].name, "Am-241");
  EXPECT_EQ(lines[0].channel, 850.3);
  EXPECT_EQ(lines[0].energy_kev, 59.5409);
}

TEST(LineTable, ChannelAndNameMayBeMissing) {
  const auto lines = ParseLineTable("energy_keV,channel,name\n8.0411\n22.1031,,Ag Ka");
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_FALSE(lines[0].channel);
  EXPECT_FALSE(lines[1].channel);
  EXPECT_EQ(lines[1].name, "Ag Ka");
}

TEST(LineTable, SpreadsheetsWithTheirMarkAndLineEndsAreRead) {
  EXPECT_EQ(ParseLineTable("\xEF\xBB\xBF"
                           "energy_keV\r\n\r\n8.0411\r\n")
                .size(),
            1u);
}

TEST(LineTable, QuotedFieldsHoldCommasAndDoubledQuotes) {
  const auto lines = ParseLineTable(
      "\"name\",\"energy_keV\",\"channel\"\r\n"
      "\"Pb Ka1, \"\"strong\"\"\",\"74.9693\",\"\"\r\n"
      " \"\"\"Ag\"\"\" , 22.1031 , \"316\" \r\n");
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].name, "Pb Ka1, \"strong\"");
  EXPECT_EQ(lines[0].energy_kev, 74.9693);
  EXPECT_FALSE(lines[0].channel);
  EXPECT_EQ(lines[1].name, "\"Ag\"");
  EXPECT_EQ(lines[1].energy_kev, 22.1031);
  EXPECT_EQ(lines[1].channel, 316);
}

TEST(LineTable, AQuotedFieldGoesOverLinesAndTheNameIsOneLine) {
  const auto lines =
      ParseLineTable("energy_keV,remark,name\n8.0411,\"a,\n\nb\",\"Cu\r\nKa\"\n22.1031,,Ag\n");
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].name, "Cu Ka");
  EXPECT_EQ(lines[1].name, "Ag");
  EXPECT_EQ(FailureOf("energy_keV,name\n8.0411,\"Cu\nKa\"\nx,\n"), "line 4: \"x\" is no number");
}

TEST(LineTable, AQuoteInsideOfAFieldIsText) {
  EXPECT_EQ(ParseLineTable("energy_keV,name\n8.0411,K\"a\"").front().name, "K\"a\"");
}

TEST(LineTable, QuotesThatDoNotFitAreTold) {
  EXPECT_EQ(FailureOf("energy_keV,name\n8.0411,\"Cu\n9,b\n"), "line 2: a quote is not closed");
  EXPECT_EQ(FailureOf("energy_keV,name\n8.0411,\"Cu\"\""), "line 2: a quote is not closed");
  EXPECT_EQ(FailureOf("energy_keV,name\n8.0411,\"Cu\" Ka\n"), "line 2: text behind a quoted field");
}

TEST(LineTable, WhatIsWrongIsToldWithItsLine) {
  EXPECT_EQ(FailureOf("channel,name\n1,a\n"), "line 1: no column energy_keV");
  EXPECT_EQ(FailureOf("energy_keV\n\nCu\n"), "line 3: \"Cu\" is no number");
  EXPECT_EQ(FailureOf("energy_keV,channel\n8.04,x\n"), "line 2: \"x\" is no number");
  EXPECT_EQ(FailureOf("energy_keV,channel\n,12\n"), "line 2: \"\" is no number");
  EXPECT_EQ(FailureOf("energy_keV\n-1\n"), "line 2: the energy is not above 0");
  EXPECT_EQ(FailureOf("energy_keV\n0\n"), "line 2: the energy is not above 0");
}

TEST(LineTable, NoRowIsRefused) {
  EXPECT_EQ(FailureOf(""), "no line of known energy");
  EXPECT_EQ(FailureOf("energy_keV\n"), "no line of known energy");
}

TEST(LineTable, ThirtyRowsAreTheMost) {
  std::string text = "energy_keV\n";
  for (int i = 0; i < 30; ++i) text += "10\n";
  EXPECT_EQ(ParseLineTable(text).size(), 30u);
  EXPECT_EQ(FailureOf(text + "10\n"), "more than 30 lines");
}

}  // namespace
}  // namespace dorvane
