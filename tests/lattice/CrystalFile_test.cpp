#include "lattice/CrystalFile.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "lattice/CrystalData.h"
#include "support/AwkwardFiles.h"
#include "support/FailingFileLayer.h"
#include "support/TemporaryFolder.h"

namespace dorvane {
namespace {

const std::string kTenLines = "1\n2\n3\n4\n5\n6\n7\n\"8\n9,9\n10\n";
const std::string kSalt = "\"NACL\",0,5.6402,5.6402,5.6402,90,90,90\n1,1,1\n2,0,0\n0,0,0\n";
const std::string kCell = ",0,4,4,4,90,90,90\n";

CrystalLibrary Read(const std::string& body) {
  return ReadCrystalFile(kTenLines + body);
}

std::string Triples(int count) {
  std::string text;
  for (int i = 1; i <= count; ++i) text += std::to_string(i) + ",0,0\n";
  return text;
}

std::string WithCrLf(const std::string& text) {
  std::string result;
  for (const char c : text) result += c == '\n' ? std::string("\r\n") : std::string(1, c);
  return result;
}

// Code and text of the fault that reading ends in.
std::pair<FaultCode, std::string> FaultOf(const std::function<void()>& read) {
  try {
    read();
  } catch (const Fault& fault) {
    return {fault.Code(), fault.what()};
  }
  return {};
}

void ExpectFault(const std::string& body, FaultCode code, const std::string& line) {
  const auto [found, text] = FaultOf([&] { Read(body); });
  EXPECT_EQ(found, code);
  EXPECT_TRUE(text.ends_with(": " + line)) << text;
}

TEST(CrystalFile, ReadsNameSystemCellAndLines) {
  const CrystalLibrary library = Read("1\n\"X y\",4,1.5,2.5,3.5,80,91.25,100\n1,-2,3\n0,0,0\n");
  const CrystalRec& crystal = library.CrystalTable[0];
  EXPECT_EQ(library.CrystalCount, 1);
  EXPECT_EQ(crystal.Name, "X y");
  EXPECT_EQ(crystal.LatticeType, 4);
  EXPECT_EQ(crystal.Lat[2], 3.5);
  EXPECT_EQ(crystal.Ang[1], 91.25);
  EXPECT_EQ(crystal.LineCount, 1);
  EXPECT_EQ(crystal.K[0], -2);
}

TEST(CrystalFile, TheTerminatorIsNotStored) {
  const CrystalRec crystal = Read("1\n" + kSalt).CrystalTable[0];
  EXPECT_EQ(crystal.LineCount, 2);
  EXPECT_EQ(crystal.H[1], 2);
  EXPECT_EQ(crystal.H[2], 0);
}

TEST(CrystalFile, CrLfReadsAsLf) {
  const CrystalLibrary library = ReadCrystalFile(WithCrLf(kTenLines + "2\n" + kSalt + kSalt));
  EXPECT_EQ(library.CrystalTable[1].Name, "NACL");
  EXPECT_EQ(library.CrystalTable[1].LineCount, 2);
}

TEST(CrystalFile, CommasAndLineEndsSeparateAlike) {
  const CrystalLibrary library = Read("1,NACL\n0\n5.6,5.6,\n5.6,90\n90,90,1,1,1,2,0,0,0,0,0");
  EXPECT_EQ(library.CrystalTable[0].Name, "NACL");
  EXPECT_EQ(library.CrystalTable[0].LineCount, 2);
}

TEST(CrystalFile, BlankLinesAreNoFields) {
  const CrystalLibrary library = Read("\n 1 \n\n  \t\n\"Au\"" + kCell + "\n1,1,1\n \n\n0,0,0\n\n");
  EXPECT_EQ(library.CrystalTable[0].Name, "Au");
  EXPECT_EQ(library.CrystalTable[0].LineCount, 1);
}

TEST(CrystalFile, AQuotedNameKeepsBlanksAndCommas) {
  EXPECT_EQ(Read("1\n \" a, b \" " + kCell + "0,0,0\n").CrystalTable[0].Name, " a, b ");
}

TEST(CrystalFile, NamesAreCodePageText) {
  EXPECT_EQ(Read("1\n\"\x89\x96\"" + kCell + "0,0,0\n").CrystalTable[0].Name, "塩");
}

TEST(CrystalFile, ACountOfNoneOrLessReadsNoCrystal) {
  EXPECT_EQ(Read("0\n").CrystalCount, 0);
  EXPECT_EQ(Read("-3\n" + kSalt).CrystalCount, -3);
}

TEST(CrystalFile, AnEmptyListHasNoLines) {
  EXPECT_EQ(Read("1\n\"Au\"" + kCell + "0,0,0\n").CrystalTable[0].LineCount, 0);
}

TEST(CrystalFile, ATerminatorAfterThe101stLineIsRead) {
  const std::string body = "2\n\"Au\"" + kCell + Triples(101) + "0,0,0\n" + kSalt;
  const CrystalLibrary library = Read(body);
  EXPECT_EQ(library.CrystalTable[0].LineCount, 101);
  EXPECT_EQ(library.CrystalTable[0].H[100], 101);
  EXPECT_EQ(library.CrystalTable[1].Name, "NACL");
}

TEST(CrystalFile, AnOpenListOf101LinesTakesTheNextNameAsANumber) {
  // Ten free lines, the count, the cell, 101 lines: the next name stands in line 114.
  ExpectFault("2\n\"Au\"" + kCell + Triples(101) + kSalt, FaultCode::NotANumber, "line 114");
}

TEST(CrystalFile, A102ndLineFails) {
  ExpectFault("1\n\"Au\"" + kCell + Triples(102) + "0,0,0\n", FaultCode::Subscript, "line 114");
}

TEST(CrystalFile, ThirtyOneCrystalsFit) {
  std::string body = "31\n";
  for (int i = 0; i < 31; ++i) body += kSalt;
  EXPECT_EQ(Read(body).CrystalTable[30].Name, "NACL");
}

TEST(CrystalFile, A32ndCrystalFailsOnTheSubscript) {
  std::string body = "32\n";
  for (int i = 0; i < 32; ++i) body += kSalt;
  // Behind eleven lines and 31 crystals of four lines.
  ExpectFault(body, FaultCode::Subscript, "line 135");
}

TEST(CrystalFile, FaultsNameTheLineWhereReadingStopped) {
  ExpectFault("many\n", FaultCode::NotANumber, "line 11");
  ExpectFault("1\n\"Au\",cubic,4,4,4,90,90,90\n", FaultCode::NotANumber, "line 12");
  ExpectFault("1\n\"Au\"" + kCell + "1,1,1\n\n2,,0\n0,0,0\n", FaultCode::NotANumber, "line 15");
  ExpectFault("1\n\"Au\"" + kCell + "1,1,40000\n", FaultCode::Overflow, "line 13");
  ExpectFault("1\n\"Au,0,4\n", FaultCode::BadArgument, "line 12");
  ExpectFault("1\n\"Au\" x,0\n", FaultCode::BadArgument, "line 12");
}

TEST(CrystalFile, ACutFileNamesItsLastLine) {
  ExpectFault("1\n\"Au\"" + kCell + "1,1,1\n", FaultCode::EndOfFile, "line 14");
  const auto [code, text] = FaultOf([] { ReadCrystalFile("1\n2\n3"); });
  EXPECT_EQ(code, FaultCode::EndOfFile);
  EXPECT_TRUE(text.ends_with(": line 3")) << text;
}

TEST(CrystalFile, ALineMayEndInAComma) {
  EXPECT_EQ(Read("1,\n\"Au\"" + kCell + "1,1,1,\n0,0,0,\n").CrystalTable[0].LineCount, 1);
}

TEST(CrystalFile, AFileCutAnywhereBeforeItsLastFieldFails) {
  const std::string whole = kTenLines + "1\n" + kSalt;
  for (std::size_t size = 0; size + 2 < whole.size(); ++size) {
    EXPECT_THROW(ReadCrystalFile(whole.substr(0, size)), Fault) << size;
  }
}

TEST(CrystalFile, AnyBytesAreReadOrRefused) {
  std::string bytes = kTenLines;
  std::uint32_t random = 1;
  for (int i = 0; i < 20000; ++i) {
    random = random * 1664525u + 1013904223u;
    bytes += "0123456789,,,\n\r\"\xff-. "[(random >> 16) % 20];
  }
  EXPECT_THROW(ReadCrystalFile(bytes), Fault);
}

TEST(CrystalFile, AMissingFileFailsWithItsName) {
  SystemFileLayer files;
  const auto [code, text] = FaultOf([&] { ReadCrystalFile(files, "no/crystal.dat"); });
  EXPECT_EQ(code, FaultCode::FileNotFound);
  EXPECT_TRUE(text.ends_with(": no/crystal.dat")) << text;
}

TEST(CrystalFile, ABrokenFileIsNamedWithItsLine) {
  TemporaryFolder folder;
  const std::string path = folder.Path("crystal.dat");
  std::ofstream(path) << kTenLines << "x\n";
  SystemFileLayer files;
  const auto [code, text] = FaultOf([&] { ReadCrystalFile(files, path); });
  EXPECT_EQ(code, FaultCode::NotANumber);
  EXPECT_TRUE(text.ends_with(path + ", line 11")) << text;
}

TEST(CrystalFile, AFailureOfTheFileLayerPasses) {
  SystemFileLayer system;
  for (int call = 1; call <= 3; ++call) {
    FailingFileLayer files(system, call);
    EXPECT_THROW(ReadCrystalFile(files, DORVANE_SOURCE_DIR "/data/crystal.dat"), Fault) << call;
  }
}

TEST(CrystalFile, WhatIsNoFileOrTooLargeFailsUnread) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.Path("folder"));
  ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink("circle", folder.Path("circle"));
  folder.Put("large", kTenLines + "1\n" + kSalt);
  std::filesystem::resize_file(folder.Path("large"), std::uintmax_t{4} << 30);
  CountingFiles files;
  for (const char* name : {"folder", "pipe", "circle", "large"}) {
    const auto [code, text] = FaultOf([&] { ReadCrystalFile(files, folder.Path(name)); });
    EXPECT_EQ(code, FaultCode::FileFailed) << name;
  }
  EXPECT_EQ(files.bytes_read, 0u);
}

TEST(CrystalFile, AFileThatShrinksWhileItIsReadIsACutOne) {
  const TemporaryFolder folder;
  const std::string whole = kTenLines + "1\n" + kSalt;
  folder.Put("crystal.dat", whole);
  ShrinkingFiles files(whole.size() - 4);
  const auto [code, text] = FaultOf([&] { ReadCrystalFile(files, folder.Path("crystal.dat")); });
  EXPECT_EQ(code, FaultCode::EndOfFile);
}

TEST(CrystalFile, ALinkToAJapaneseNameIsFollowed) {
  const TemporaryFolder folder;
  folder.Put("結晶 データ.dat", kTenLines + "1\n" + kSalt);
  std::filesystem::create_symlink("結晶 データ.dat", folder.Path("crystal.dat"));
  SystemFileLayer files;
  EXPECT_EQ(ReadCrystalFile(files, folder.Path("crystal.dat")).CrystalTable[0].Name, "NACL");
}

class BundledLibrary : public testing::Test {
 protected:
  SystemFileLayer files;
  CrystalLibrary library = ReadCrystalFile(files, DORVANE_SOURCE_DIR "/data/crystal.dat");
};

TEST_F(BundledLibrary, HoldsSeventeenCrystals) {
  EXPECT_EQ(library.CrystalCount, 17);
  EXPECT_EQ(library.CrystalTable[16].Name, "Kyanite");
  EXPECT_EQ(library.CrystalTable[16].LatticeType, 5);
  EXPECT_EQ(library.CrystalTable[16].LineCount, 100);
  EXPECT_EQ(library.CrystalTable[17].Name, "");
}

TEST_F(BundledLibrary, OffersTenOfThem) {
  const std::vector<std::string> names{"NACL", "Au",   "Pt", "MgO",  "hBN",
                                       "PT_B", "PT_H", "Si", "CeO2", "Al2O3"};
  EXPECT_EQ(CrystalNames(library), names);
}

}  // namespace
}  // namespace dorvane
