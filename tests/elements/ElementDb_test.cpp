#include "elements/ElementDb.h"

#include <gmock/gmock.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include <fstream>
#include <sstream>

#include "support/TemporaryFolder.h"

namespace dorvane {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::Field;

constexpr const char* kBuilt = DORVANE_BINARY_DIR "/bin/Atomic.db";
constexpr const char* kColumns =
    "Num, Symbol, Element, KAve REAL, Ka1 REAL, Ka2 REAL, Kb1 REAL, La1 REAL, Lb1 REAL, Lg1 REAL, "
    "AbsEdge REAL";

class ElementDbTest : public testing::Test {
 protected:
  // A database made by these statements.
  std::string Make(const std::string& script) const {
    const std::string path = folder.Path("Atomic.db");
    std::filesystem::remove(path);
    sqlite3* database = nullptr;
    sqlite3_open(path.c_str(), &database);
    EXPECT_EQ(sqlite3_exec(database, script.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
    return path;
  }
  std::string MakeTable(const std::string& rows) const {
    return Make(std::string("CREATE TABLE Elements (") + kColumns + ");" + rows);
  }
  static std::string Bytes(const std::string& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
  }

  TemporaryFolder folder;
  ElementDb store;
};

std::vector<std::string> SplitLine(const std::string& line) {
  std::vector<std::string> fields;
  std::stringstream rest(line + ",");
  for (std::string field; std::getline(rest, field, ',');) fields.push_back(field);
  return fields;
}

TEST_F(ElementDbTest, TheBuiltTableHoldsEveryRowOfTheList) {
  ASSERT_TRUE(store.Open(kBuilt));
  std::ifstream list(DORVANE_SOURCE_DIR "/data/element_lines.csv");
  std::string line;
  std::getline(list, line);
  const auto names = SplitLine(line);
  int rows = 0;
  for (; std::getline(list, line); ++rows) {
    const auto fields = SplitLine(line);
    const auto record = store.FindByNum(std::stoi(fields[0]));
    ASSERT_TRUE(record) << line;
    EXPECT_EQ(record->Symbol, fields[1]);
    EXPECT_EQ(record->Element, fields[2]);
    for (std::size_t kind = 0; kind < record->Lines.size(); ++kind) {
      const ElementRec::Line& found = record->Lines[kind];
      EXPECT_EQ(found.field, names[kind + 3]);
      ASSERT_EQ(found.energy_kev.has_value(), !fields[kind + 3].empty()) << line;
      const double listed = found.energy_kev ? std::stod(fields[kind + 3]) : 0;
      EXPECT_EQ(found.energy_kev.value_or(0), listed) << line;
    }
  }
  EXPECT_EQ(rows, 103);
}

TEST_F(ElementDbTest, TheLicenceGoesWithTheBuiltTable) {
  EXPECT_NE(Bytes(kBuilt).find("Redistribution and use in source and binary forms"),
            std::string::npos);
}

TEST_F(ElementDbTest, SymbolsCompareWithoutRegardToCase) {
  ASSERT_TRUE(store.Open(kBuilt));
  for (const char* symbol : {"Fe", "fe", "FE", "fE"}) {
    const auto record = store.FindBySymbol(symbol);
    ASSERT_TRUE(record) << symbol;
    EXPECT_EQ(record->Num, 26);
  }
}

TEST_F(ElementDbTest, WhatIsNotInTheTableIsNotFound) {
  ASSERT_TRUE(store.Open(kBuilt));
  for (const double num : {0.0, 104.0, -1.0, 26.5, 1e300}) EXPECT_FALSE(store.FindByNum(num));
  for (const char* symbol : {"", "X", "Fe ", "F%", "Iron"}) {
    EXPECT_FALSE(store.FindBySymbol(symbol)) << symbol;
  }
}

TEST_F(ElementDbTest, ASymbolIsAValueAndNoPartOfTheSearch) {
  ASSERT_TRUE(store.Open(kBuilt));
  EXPECT_FALSE(store.FindBySymbol("Fe' OR '1'='1"));
  EXPECT_FALSE(store.FindBySymbol("'; DROP TABLE Elements; --"));
  EXPECT_FALSE(store.FindBySymbol(std::string("Fe\0", 3)));
  EXPECT_TRUE(store.FindBySymbol("Fe"));
}

TEST_F(ElementDbTest, WithoutATableItDoesNotOpen) {
  EXPECT_FALSE(store.Open(folder.Path("none.db")));
  EXPECT_FALSE(folder.Has("none.db"));
  EXPECT_FALSE(store.Open(folder.Path("")));
  folder.Put("empty.db", "");
  EXPECT_FALSE(store.Open(folder.Path("empty.db")));
  folder.Put("text.db", std::string(5000, 'x'));
  EXPECT_FALSE(store.Open(folder.Path("text.db")));
  EXPECT_FALSE(store.Open(Make("CREATE TABLE Others (Num)")));
  EXPECT_FALSE(store.Open(Make("CREATE TABLE Elements (Num, Symbol, Element, KAve)")));
  EXPECT_FALSE(store.IsOpen());
}

TEST_F(ElementDbTest, APipeIsNoTable) {
  ASSERT_EQ(mkfifo(folder.Path("Atomic.db").c_str(), 0600), 0);
  EXPECT_FALSE(store.Open(folder.Path("Atomic.db")));
}

TEST_F(ElementDbTest, AClosedStoreFindsNothing) {
  EXPECT_FALSE(store.FindByNum(26));
  EXPECT_FALSE(store.FindBySymbol("Fe"));
  ASSERT_TRUE(store.Open(kBuilt));
  EXPECT_FALSE(store.Open(folder.Path("none.db")));
  EXPECT_FALSE(store.FindByNum(26));
}

TEST_F(ElementDbTest, RowsThatAreNoRecordsAreSkipped) {
  ASSERT_TRUE(store.Open(MakeTable(
      "INSERT INTO Elements (Num, Symbol, Element, KAve) VALUES"
      "(1, NULL, 'Hydrogen', 1), (2, 'He', x'00', 1), ('3', 'Li', 'Lithium', 1),"
      "(4, 'Be', 'Beryllium', 'much'), (5, 'B', 'Boron', -1), (6, 'C', 'Carbon', 9e999),"
      "(-7, 'N', 'Nitrogen', 1), (8, 'O', 'Oxygen', 1), (9000000000, 'F', 'Fluorine', 1);")));
  for (const double num : {1, 2, 3, 4, 5, 6, -7}) EXPECT_FALSE(store.FindByNum(num)) << num;
  EXPECT_FALSE(store.FindByNum(9e9));
  EXPECT_TRUE(store.FindByNum(8));
}

TEST_F(ElementDbTest, ARecordBehindASkippedRowIsFound) {
  ASSERT_TRUE(
      store.Open(MakeTable("INSERT INTO Elements (Num, Symbol, Element) VALUES"
                           "(26, 'Fe', NULL), (26, 'Fe', 'Iron');")));
  EXPECT_EQ(store.FindByNum(26)->Element, "Iron");
}

TEST_F(ElementDbTest, ATextLongerThanAnyNameIsNoRecord) {
  ASSERT_TRUE(
      store.Open(MakeTable("INSERT INTO Elements (Num, Symbol, Element) VALUES"
                           "(26, 'Fe', hex(zeroblob(1000000)));")));
  EXPECT_FALSE(store.FindByNum(26));
}

TEST_F(ElementDbTest, FieldsCarryTheTablesOwnNames) {
  ASSERT_TRUE(
      store.Open(Make("CREATE TABLE Elements (Num, Symbol, Element, a, b, c, d, e, f, g, h);"
                      "INSERT INTO Elements (Num, Symbol, Element, h) VALUES"
                      "(26, 'Fe', 'Iron', 7);")));
  const auto record = store.FindByNum(26);
  ASSERT_TRUE(record);
  EXPECT_EQ(record->Lines[7].field, "h");
  EXPECT_EQ(record->Lines[7].energy_kev, 7);
}

TEST_F(ElementDbTest, ASearchThatNeverEndsIsStopped) {
  ASSERT_TRUE(store.Open(Make(
      "CREATE VIEW Elements (Num, Symbol, Element, a, b, c, d, e, f, g, h) AS WITH RECURSIVE "
      "r(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM r) SELECT -n, 'X', 'X', 1, 1, 1, 1, 1, 1, 1, "
      "1 FROM r;")));
  EXPECT_FALSE(store.FindByNum(26));
  EXPECT_FALSE(store.FindBySymbol("Fe"));
}

TEST_F(ElementDbTest, ManySearchesAreNotTakenForOne) {
  ASSERT_TRUE(store.Open(kBuilt));
  for (int i = 0; i < 20000; ++i) ASSERT_TRUE(store.FindBySymbol("Lr")) << i;
}

// Every search ends, and what is found has its number.
TEST_F(ElementDbTest, ADamagedFileIsReadWithoutHarm) {
  const std::string good = Bytes(kBuilt);
  for (std::size_t at = 0; at < good.size(); at += 61) {
    std::string bad = good;
    bad[at] = static_cast<char>(bad[at] ^ 0xFF);
    folder.Put("Atomic.db", bad);
    if (!store.Open(folder.Path("Atomic.db"))) continue;
    for (const int num : {1, 26, 103}) {
      const auto record = store.FindByNum(num);
      EXPECT_TRUE(!record || record->Num == num) << at;
    }
    store.FindBySymbol("Fe");
  }
}

TEST_F(ElementDbTest, ACutFileIsReadWithoutHarm) {
  const std::string good = Bytes(kBuilt);
  for (std::size_t length = 0; length < good.size(); length += 509) {
    folder.Put("Atomic.db", good.substr(0, length));
    if (store.Open(folder.Path("Atomic.db"))) store.FindByNum(26);
  }
}

// Bytes 18 and 19 of the file: 2 says that writes go to a log beside it, which a reader would make.
TEST_F(ElementDbTest, AFileWithAWriteAheadLogGetsNoFilesBesideIt) {
  std::string bytes = Bytes(kBuilt);
  bytes[18] = bytes[19] = 2;
  folder.Put("Atomic.db", bytes);
  store.Open(folder.Path("Atomic.db"));
  store.FindByNum(26);
  EXPECT_THAT(folder.Names(), ElementsAre("Atomic.db"));
}

TEST_F(ElementDbTest, APathWithSignsOfAnAddressIsAPath) {
  folder.Put("a?b#c%41 d.db", Bytes(kBuilt));
  EXPECT_TRUE(store.Open(folder.Path("a?b#c%41 d.db")));
}

TEST_F(ElementDbTest, EnergiesMayBeMissingAndNothingElse) {
  ASSERT_TRUE(
      store.Open(MakeTable("INSERT INTO Elements (Num, Symbol, Element) VALUES"
                           "(26, 'Fe', 'Iron'), (NULL, 'Pb', 'Lead'), ('82', 'Pb', 'Lead');")));
  const auto record = store.FindByNum(26);
  ASSERT_TRUE(record);
  EXPECT_THAT(record->Lines, Each(Field(&ElementRec::Line::energy_kev, std::nullopt)));
  EXPECT_FALSE(store.FindBySymbol("Pb"));
  EXPECT_FALSE(store.FindByNum(82));
}

TEST_F(ElementDbTest, AFileCutWhileItIsOpenIsReadWithoutHarm) {
  folder.Put("Atomic.db", Bytes(kBuilt));
  ASSERT_TRUE(store.Open(folder.Path("Atomic.db")));
  EXPECT_TRUE(store.FindByNum(26));
  std::filesystem::resize_file(folder.Path("Atomic.db"), 100);
  store.FindByNum(27);
  store.FindBySymbol("Pb");
}

TEST_F(ElementDbTest, ReadingLeavesTheFolderAsItIs) {
  folder.Put("Atomic.db", Bytes(kBuilt));
  ASSERT_TRUE(store.Open(folder.Path("Atomic.db")));
  store.FindByNum(26);
  EXPECT_THAT(folder.Names(), ElementsAre("Atomic.db"));
  EXPECT_EQ(folder.Get("Atomic.db"), Bytes(kBuilt));
}

}  // namespace
}  // namespace dorvane
