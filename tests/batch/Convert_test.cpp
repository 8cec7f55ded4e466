// The command "convert".
#include <gmock/gmock.h>
#include <unistd.h>

#include "batch/BatchFixture.h"
#include "files/FileDorvane.h"
#include "files/FileGSA.h"
#include "files/FileGenie.h"
#include "files/FileNPD.h"
#include "files/Samples.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

std::string TextOf(const ByteVector& bytes) {
  return std::string(AsText(bytes));
}

// Longest name of a file, in bytes.
constexpr std::size_t kLongestName = 255;

class ConvertTest : public BatchTest {
 protected:
  ConvertTest() {
    std::filesystem::remove(folder.Path("samples"));
    record_.OpDate.Set("20161104");
    PutXbm("run.xbm");
  }

  void PutXbm(const std::string& name) const {
    folder.Put(name, TextOf(XbmImage(block_, record_)));
  }
  void PutFolder(const std::string& name) const {
    std::filesystem::create_directory(folder.Path(name));
  }
  void PutLink(const std::string& name, const std::string& target) const {
    std::filesystem::create_symlink(target, folder.Path(name));
  }
  void PutSeed(const std::string& name, const std::string& seed) const {
    std::filesystem::copy_file(DORVANE_SOURCE_DIR "/fuzz/corpus/" + seed, folder.Path(name));
  }

  static BatchRun Convert(const std::string& to, std::vector<std::string> more) {
    more.insert(more.begin(), {"convert", "--to", to});
    return Run(more);
  }

  // The record as it stands in a result of that name.
  SpectrumRec Saved(const std::string& name) const {
    SpectrumRec record = record_;
    record.MsuName.Set(name);
    record.SaveFlag = 1;
    return record;
  }
  SpectrumRec ReadXbmRecord(const std::string& name) const {
    ChannelBlock block;
    SpectrumRec record;
    const std::string image = folder.Get(name);
    ParseXbm(AsBytes(image), block, record);
    return record;
  }

  ChannelBlock block_ = SampleBlock(20);
  SpectrumRec record_ = SampleRecord();
};

TEST_F(ConvertTest, WritesEveryFormat) {
  const SpectrumRec saved = Saved("run");
  const std::vector<std::pair<std::string, ByteVector>> formats{
      {"xbm", XbmImage(block_, saved)}, {"xba", XbaImage(block_, saved, PeakTable{})},
      {"xta", XtaImage(block_, saved)}, {"npd", NpdImage(block_, saved)},
      {"rpt", RptImage(block_, saved)}, {"gsa", GsaImage(block_, saved)},
      {"csv", CsvImage(block_, saved)},
  };
  for (const auto& [extension, image] : formats) {
    const BatchRun run = Convert(extension, {"run.xbm", "--out", "out"});
    EXPECT_EQ(run.status, 0) << extension;
    EXPECT_EQ(run.out, "out/run." + extension + "\n");
    EXPECT_EQ(run.err, "") << extension;
    EXPECT_EQ(folder.Get("out/run." + extension), TextOf(image)) << extension;
  }
}

TEST_F(ConvertTest, ReadsEveryFormat) {
  PutSeed("a.chn", "chn_fuzz/sixteen_channels");
  PutSeed("b.cnf", "cnf_fuzz/plain_layout");
  PutSeed("c.raw", "dac_fuzz/two_lines");
  folder.Put("d.npd", TextOf(NpdImage(block_, record_)));
  folder.Put("e.rpt", TextOf(RptImage(block_, record_)));
  folder.Put("f.xba", TextOf(XbaImage(block_, record_, SamplePeaks(2))));
  PutXbm("g.007");
  PutXbm("h.XBM");
  const BatchRun run = Convert(
      "csv", {"a.chn", "b.cnf", "c.raw", "d.npd", "e.rpt", "f.xba", "g.007", "h.XBM", "run.xbm"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "a.csv\nb.csv\nc.csv\nd.csv\ne.csv\nf.csv\ng_007.csv\nh.csv\nrun.csv\n");
  EXPECT_EQ(run.err, "");
}

TEST_F(ConvertTest, ExtensionMayHaveADotAStarOrCapitals) {
  for (const std::string typed : {"npd", ".npd", "*.npd", ".NPD"}) {
    EXPECT_EQ(Convert(typed, {"run.xbm", "--overwrite"}).out, "run.npd\n") << typed;
  }
}

TEST_F(ConvertTest, ExtensionThatIsNotWrittenIsBadUsage) {
  for (const std::string typed : {"chn", "cnf", "raw", "001", "", "png"}) {
    const BatchRun run = Convert(typed, {"run.xbm"});
    EXPECT_EQ(run.status, 2) << typed;
    EXPECT_EQ(run.err, "dorvane-batch: --to " + typed +
                           ": files are written as xta, xba, csv, npd, rpt, xbm, gsa\n");
  }
  EXPECT_THAT(folder.Names(), ElementsAre("run.xbm"));
}

TEST_F(ConvertTest, NumberOfASeriesStaysInTheName) {
  PutXbm("run.001");
  PutXbm("run.002");
  const BatchRun run = Convert("npd", {"run.001", "run.002"});
  EXPECT_EQ(run.out, "run_001.npd\nrun_002.npd\n");
  EXPECT_EQ(folder.Get("run_002.npd"), TextOf(NpdImage(block_, Saved("run_002"))));
}

// As after a save in the window.
TEST_F(ConvertTest, NameOfTheResultStandsInTheRecordWhichCountsAsSaved) {
  record_.SaveFlag = 0;
  PutXbm("first.xbm");
  Convert("xbm", {"first.xbm", "--out", "out"});
  const SpectrumRec record = ReadXbmRecord("out/first.xbm");
  EXPECT_EQ(record.MsuName.Text(), "first");
  EXPECT_EQ(record.SaveFlag, 1);
}

TEST_F(ConvertTest, JapaneseNameStandsInTheRecord) {
  PutXbm("高圧.xbm");
  EXPECT_EQ(Convert("xbm", {"高圧.xbm", "--out", "出力"}).out, "出力/高圧.xbm\n");
  EXPECT_EQ(ReadXbmRecord("出力/高圧.xbm").MsuName.Text(), "高圧");
}

TEST_F(ConvertTest, PeaksStay) {
  const PeakTable peaks = SamplePeaks(3);
  folder.Put("run.xba", TextOf(XbaImage(block_, Saved("run"), peaks)));
  EXPECT_EQ(Convert("xba", {"run.xba", "--out", "out"}).status, 0);
  EXPECT_EQ(folder.Get("out/run.xba"), folder.Get("run.xba"));
}

// No format that is written has a place for them.
TEST_F(ConvertTest, AnglesOfAnAngleDispersivePatternAreNotInTheResult) {
  PutSeed("dac.raw", "dac_fuzz/two_lines");
  EXPECT_EQ(Convert("xbm", {"dac.raw"}).status, 0);
  ChannelBlock block;
  SpectrumRec record;
  const std::string image = folder.Get("dac.xbm");
  ParseXbm(AsBytes(image), block, record);
  EXPECT_EQ(block.Count, 4096);
  EXPECT_EQ(block.Counts[0], 10);
  EXPECT_EQ(block.Counts[1], 20);
  EXPECT_EQ(record.Prop.EGC[0], 0);
}

TEST_F(ConvertTest, SecondFileWithTheSameResultIsRefused) {
  PutFolder("other");
  PutXbm("other/run.xbm");
  const BatchRun run = Convert("npd", {"run.xbm", "other/run.xbm", "--overwrite"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "run.npd\n");
  EXPECT_EQ(run.err, "dorvane-batch: other/run.xbm: run.npd belongs to run.xbm already\n");
}

TEST_F(ConvertTest, SeriesAndAFileOfItsNameHaveTheSameResult) {
  PutXbm("run.001");
  PutXbm("run_001.xbm");
  const BatchRun run = Convert("npd", {"run.001", "run_001.xbm"});
  EXPECT_EQ(run.err, "dorvane-batch: run_001.xbm: run_001.npd belongs to run.001 already\n");
}

TEST_F(ConvertTest, ExistingResultStaysAndTheOthersAreDone) {
  folder.Put("run.npd", "mine");
  PutXbm("next.xbm");
  const BatchRun run = Convert("npd", {"run.xbm", "next.xbm"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "next.npd\n");
  EXPECT_EQ(run.err, "dorvane-batch: run.xbm: run.npd exists already (--overwrite replaces it)\n");
  EXPECT_EQ(folder.Get("run.npd"), "mine");
}

TEST_F(ConvertTest, OverwriteReplacesResults) {
  folder.Put("run.npd", "mine");
  const BatchRun run = Convert("npd", {"run.xbm", "--overwrite"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(folder.Get("run.npd"), TextOf(NpdImage(block_, Saved("run"))));
}

TEST_F(ConvertTest, FileItselfIsNoResultEvenWithOverwrite) {
  const std::string before = folder.Get("run.xbm");
  const BatchRun run = Convert("xbm", {"run.xbm", "--overwrite"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "dorvane-batch: run.xbm: run.xbm is itself to be converted\n");
  EXPECT_EQ(folder.Get("run.xbm"), before);
}

TEST_F(ConvertTest, FileItselfIsNoResultThroughALinkedFile) {
  PutFolder("out");
  PutLink("out/run.xbm", "../run.xbm");
  const BatchRun run = Convert("xbm", {"run.xbm", "--out", "out", "--overwrite"});
  EXPECT_EQ(run.err, "dorvane-batch: run.xbm: out/run.xbm is itself to be converted\n");
}

TEST_F(ConvertTest, FileItselfIsNoResultThroughALinkedFolder) {
  PutLink("out", ".");
  const BatchRun run = Convert("xbm", {"run.xbm", "--out", "out", "--overwrite"});
  EXPECT_EQ(run.err, "dorvane-batch: run.xbm: out/run.xbm is itself to be converted\n");
}

TEST_F(ConvertTest, FileToBeConvertedIsNoResultOfAnotherEvenWithOverwrite) {
  PutFolder("other");
  PutXbm("other/run.xba");
  const std::string before = folder.Get("run.xbm");
  const BatchRun run = Convert("xbm", {"other/run.xba", "run.xbm", "--overwrite"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("other/run.xba: run.xbm is itself to be converted\n"));
  EXPECT_EQ(folder.Get("run.xbm"), before);
}

TEST_F(ConvertTest, LinkedResultIsFollowedAndKept) {
  folder.Put("elsewhere.npd", "old");
  PutLink("run.npd", "elsewhere.npd");
  EXPECT_EQ(Convert("npd", {"run.xbm", "--overwrite"}).status, 0);
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("run.npd")));
  EXPECT_EQ(folder.Get("elsewhere.npd"), TextOf(NpdImage(block_, Saved("run"))));
}

TEST_F(ConvertTest, FolderOfResultsIsMade) {
  EXPECT_EQ(Convert("npd", {"run.xbm", "--out", "a/b"}).out, "a/b/run.npd\n");
  EXPECT_TRUE(folder.Has("a/b/run.npd"));
}

TEST_F(ConvertTest, FolderThatCannotBeMadeIsBadUsage) {
  folder.Put("taken", "a file");
  for (const std::string out : {"taken", "taken/below"}) {
    const BatchRun run = Convert("npd", {"run.xbm", "--out", out});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "dorvane-batch: --out " + out + ": no such folder, and it can't be made\n");
  }
}

TEST_F(ConvertTest, NoFilesAreBadUsage) {
  EXPECT_EQ(Convert("npd", {}).status, 2);
}

TEST_F(ConvertTest, EachFileThatCannotBeReadIsToldInALineAndTheOthersAreDone) {
  folder.Put("broken.xbm", TextOf(XbmImage(block_, record_)).substr(0, 2100));
  folder.Put("empty.npd", "");
  folder.Put("foreign.txt", "words");
  folder.Put("words.npd", "words");
  PutFolder("folder.npd");
  const BatchRun run = Convert("csv", {"broken.xbm", "missing.npd", "empty.npd", "foreign.txt",
                                       "words.npd", "folder.npd", "run.xbm"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "run.csv\n");
  EXPECT_EQ(run.err,
            "dorvane-batch: broken.xbm: not a whole spectrum file: Open Error\n"
            "dorvane-batch: missing.npd: no such file\n"
            "dorvane-batch: empty.npd: the file is empty\n"
            "dorvane-batch: foreign.txt: not a kind of file that can be read (.npd, .cnf, .rpt, "
            ".chn, .xbm, .xba, .raw or a number)\n"
            "dorvane-batch: words.npd: not a whole spectrum file: Open Error\n"
            "dorvane-batch: folder.npd: not a file\n");
  EXPECT_FALSE(folder.Has("broken.csv"));
}

TEST_F(ConvertTest, FileOfFourGibibytesIsRefusedUnread) {
  PutXbm("huge.xbm");
  std::filesystem::resize_file(folder.Path("huge.xbm"), std::uintmax_t{4} << 30);
  EXPECT_EQ(Convert("npd", {"huge.xbm"}).err,
            "dorvane-batch: huge.xbm: too large for a spectrum\n");
}

TEST_F(ConvertTest, FolderInPlaceOfAResultIsToldInALine) {
  PutFolder("run.npd");
  PutXbm("next.xbm");
  const BatchRun run = Convert("npd", {"run.xbm", "next.xbm", "--overwrite"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "next.npd\n");
  EXPECT_THAT(run.err, HasSubstr("run.xbm: run.npd"));
  EXPECT_THAT(folder.Names(), ElementsAre("next.npd", "next.xbm", "run.npd", "run.xbm"));
}

// The number of the series makes the name of the result longer than a file system takes.
TEST_F(ConvertTest, ResultWithTooLongANameIsToldInALineAndTheOthersAreDone) {
  const std::string longest = std::string(kLongestName - 4, 'n') + ".001";
  PutXbm(longest);
  const BatchRun run = Convert("npd", {longest, "run.xbm"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "run.npd\n");
  EXPECT_THAT(run.err, EndsWith("The file could not be read or written\n"));
}

TEST_F(ConvertTest, LongestNamesAreWritten) {
  const std::string stem(kLongestName - 5, 'n');
  PutXbm(stem + "1.xbm");
  PutXbm(stem + "2.xbm");
  const BatchRun run = Convert("npd", {stem + "1.xbm", stem + "2.xbm"});
  EXPECT_EQ(run.out, stem + "1.npd\n" + stem + "2.npd\n");
  EXPECT_EQ(run.err, "");
}

TEST_F(ConvertTest, FileThatMayNotBeWrittenStays) {
  folder.Put("run.npd", "mine");
  std::filesystem::permissions(folder.Path("run.npd"), std::filesystem::perms::owner_read);
  if (access(folder.Path("run.npd").c_str(), W_OK) == 0) GTEST_SKIP() << "root may write anything";
  const BatchRun run = Convert("npd", {"run.xbm", "--overwrite"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(folder.Get("run.npd"), "mine");
}

TEST_F(ConvertTest, QuietPrintsErrorsAlone) {
  const BatchRun run = Convert("npd", {"run.xbm", "missing.npd", "--quiet"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "dorvane-batch: missing.npd: no such file\n");
  EXPECT_TRUE(folder.Has("run.npd"));
}

// More files than are under way at once.
TEST_F(ConvertTest, ManyFilesAreToldInTheirOrder) {
  std::vector<std::string> words;
  std::string expected;
  for (int i = 100; i < 160; ++i) {
    const std::string number = std::to_string(i);
    words.push_back("run." + number);
    PutXbm(words.back());
    expected += "out/run_" + number + ".gsa\n";
  }
  words.insert(words.end(), {"--out", "out"});
  EXPECT_EQ(Convert("gsa", words).out, expected);
  for (int i = 100; i < 160; ++i) {
    EXPECT_TRUE(folder.Has("out/run_" + std::to_string(i) + ".gsa")) << i;
  }
}

TEST_F(ConvertTest, UnusualCountsAreConverted) {
  block_.Count = kMaxChannels;
  block_.Counts.fill(-1);
  block_.Counts[0] = std::numeric_limits<std::int32_t>::min();
  block_.Counts[kMaxChannels - 1] = std::numeric_limits<std::int32_t>::max();
  PutXbm("full.xbm");
  block_.Count = 0;
  PutXbm("none.xbm");
  for (const std::string extension : {"xba", "xta", "npd", "rpt", "gsa", "csv"}) {
    const BatchRun run = Convert(extension, {"full.xbm", "none.xbm"});
    EXPECT_EQ(run.status, 0) << extension << run.err;
  }
  const std::string csv = folder.Get("full.csv");
  EXPECT_THAT(csv, EndsWith(",2147483647\r\n"));
  EXPECT_THAT(csv, HasSubstr(",-2147483648\r\n2,"));
}

}  // namespace
}  // namespace dorvane
