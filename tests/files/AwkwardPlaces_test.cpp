// Readers at files that lie in awkward places, or change while they are read.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "files/FilePara.h"
#include "files/FilesFixture.h"
#include "files/FormatTable.h"
#include "support/AwkwardFiles.h"

namespace dorvane {
namespace {

// A reader, a good file of it, and what it says.
struct ReaderCase {
  std::string name;  // the files' extension
  std::function<std::int16_t(FileContext&, const std::string& path)> read;
  std::string image;
  // Messages for a file that is missing, can't be opened, and is empty; none: nothing is said.
  std::optional<std::string> missing;
  std::optional<std::string> closed;
  std::optional<std::string> empty;
};

void PrintTo(const ReaderCase& reader, std::ostream* out) {
  *out << reader.name;
}

std::string Seed(const std::string& name) {
  SystemFileLayer files;
  const std::string path = std::string(DORVANE_SOURCE_DIR) + "/fuzz/corpus/" + name;
  return std::string(AsText(ReadFile(files, path)));
}

ReaderCase SpectrumReader(const std::string& extension, const std::string& seed,
                          const std::string& empty) {
  const auto read = [](FileContext& context, const std::string& path) {
    const auto block = std::make_unique<ChannelBlock>();
    const auto peaks = std::make_unique<PeakTable>();
    SpectrumRec record;
    DacAngles angles;
    return ReadByExtension(context, path, {*block, record, *peaks, angles});
  };
  return {extension, read, Seed(seed), "Open Error", "Open Error", empty};
}

std::vector<ReaderCase> Readers() {
  ReaderCase cnf = SpectrumReader("cnf", "cnf_fuzz/plain_layout", "File Error");
  cnf.missing = "Fine NotFound";
  const auto read_para = [](FileContext& context, const std::string& path) {
    const auto workspace = std::make_unique<Workspace>();
    return ParaFileRead(context, path, *workspace);
  };
  // -1 where the filter has been taken.
  const auto read_ini = [](FileContext& context, const std::string& path) {
    const auto workspace = std::make_unique<Workspace>();
    workspace->FilterIndex = 99;
    IniFileRead(context, path, *workspace);
    return workspace->FilterIndex == 99 ? kFalse : kTrue;
  };
  const std::string para_error = "Para File Read (Open Error)";
  return {cnf,
          SpectrumReader("rpt", "rpt_fuzz/sixteen_channels", "File Error"),
          SpectrumReader("chn", "chn_fuzz/sixteen_channels", "File Error"),
          SpectrumReader("raw", "dac_fuzz/two_lines", "File Write Error"),
          SpectrumReader("npd", "npd_fuzz/four_channels", "Open Error"),
          SpectrumReader("xbm", "native_fuzz/sixteen_channels", "Open Error"),
          SpectrumReader("xba", "native_fuzz/two_peaks", "Open Error"),
          SpectrumReader("001", "native_fuzz/sixteen_channels", "Open Error"),
          {"xpr", read_para, Seed("para_fuzz/with_last_prop"), para_error, para_error, para_error},
          {"ini", read_ini, Seed("ini_fuzz/defaults"), std::nullopt, para_error, std::nullopt}};
}

class ReaderPlaceTest : public testing::TestWithParam<ReaderCase> {
 protected:
  std::string NameOf(const std::string& name) const { return name + "." + GetParam().name; }
  std::string Target() const { return folder_.Path(NameOf("a")); }
  void PutGood(const std::string& name) { folder_.Put(name, GetParam().image); }

  void ExpectRead(FileLayer& files, const std::string& path) { Expect(files, path, -1, {}); }
  void ExpectRefused(FileLayer& files, const std::string& path,
                     const std::optional<std::string>& message) {
    Expect(files, path, 0, message);
  }
  void ExpectClosed(const std::string& path) { ExpectRefused(system_, path, GetParam().closed); }

  TemporaryFolder folder_;
  SystemFileLayer system_;

 private:
  void Expect(FileLayer& files, const std::string& path, int answer,
              const std::optional<std::string>& message) {
    YesDialogs dialogs;
    std::int16_t last_data_type = 0;
    FileContext context{files, dialogs, last_data_type};
    EXPECT_EQ(GetParam().read(context, path), answer);
    std::vector<std::string> told;
    if (message) told.push_back(*message);
    EXPECT_EQ(dialogs.messages, told);
  }
};

TEST_P(ReaderPlaceTest, WhatMayOnlyBeReadIsRead) {
  PutGood(NameOf("a"));
  chmod(Target().c_str(), 0444);
  chmod(folder_.Path("").c_str(), 0555);
  ExpectRead(system_, Target());
  chmod(folder_.Path("").c_str(), 0755);
}

TEST_P(ReaderPlaceTest, ALinkIsFollowed) {
  PutGood("elsewhere");
  std::filesystem::create_symlink("elsewhere", Target());
  ExpectRead(system_, Target());
}

TEST_P(ReaderPlaceTest, ALinkThatLeadsNowhereIsAMissingFile) {
  std::filesystem::create_symlink("elsewhere", Target());
  ExpectRefused(system_, Target(), GetParam().missing);
}

TEST_P(ReaderPlaceTest, LinksInACircleCannotBeOpened) {
  std::filesystem::create_symlink(NameOf("a"), Target());
  ExpectClosed(Target());
}

TEST_P(ReaderPlaceTest, LongAndJapaneseNamesAreRead) {
  for (const std::string& name : {NameOf(std::string(251, 'n')), NameOf("高圧 試料①")}) {
    PutGood(name);
    ExpectRead(system_, folder_.Path(name));
  }
}

TEST_P(ReaderPlaceTest, AFileBelowAMissingFolderOrAFileIsMissing) {
  ExpectRefused(system_, folder_.Path("missing/" + NameOf("a")), GetParam().missing);
  folder_.Put("file", "");
  ExpectRefused(system_, folder_.Path("file/" + NameOf("a")), GetParam().missing);
}

TEST_P(ReaderPlaceTest, AFolderOrAPipeCannotBeOpened) {
  std::filesystem::create_directory(Target());
  ExpectClosed(Target());
  ASSERT_EQ(mkfifo(folder_.Path(NameOf("b")).c_str(), 0600), 0);
  ExpectClosed(folder_.Path(NameOf("b")));
}

TEST_P(ReaderPlaceTest, AnEmptyFileIsRefused) {
  folder_.Put(NameOf("a"), "");
  ExpectRefused(system_, Target(), GetParam().empty);
}

TEST_P(ReaderPlaceTest, AFileThatIsEmptiedMeanwhileIsAnEmptyOne) {
  PutGood(NameOf("a"));
  ShrinkingFiles shrinking(0);
  ExpectRefused(shrinking, Target(), GetParam().empty);
}

// What is left is what a cut file holds: the reader takes it or refuses it.
TEST_P(ReaderPlaceTest, AFileThatShrinksMeanwhileIsACutOne) {
  PutGood(NameOf("a"));
  for (const std::size_t part : {2u, 3u, 10u}) {
    const std::size_t kept = GetParam().image.size() / part;
    folder_.Put(NameOf("cut"), std::string_view(GetParam().image).substr(0, kept));
    ShrinkingFiles shrinking(kept);
    YesDialogs of_cut, of_shrinking;
    std::int16_t last_data_type = 0;
    FileContext cut{system_, of_cut, last_data_type};
    FileContext shrunk{shrinking, of_shrinking, last_data_type};
    EXPECT_EQ(GetParam().read(shrunk, Target()), GetParam().read(cut, folder_.Path(NameOf("cut"))));
    EXPECT_EQ(of_shrinking.messages, of_cut.messages);
  }
}

TEST_P(ReaderPlaceTest, AFileThatIsShorterThanItsSizeTellsIsReadToItsEnd) {
  PutGood(NameOf("a"));
  BoastingFiles boasting;
  ExpectRead(boasting, Target());
}

TEST_P(ReaderPlaceTest, AFileOfFourGibibytesIsRefusedUnread) {
  PutGood(NameOf("a"));
  std::filesystem::resize_file(Target(), std::uintmax_t{4} << 30);
  CountingFiles counting;
  ExpectRefused(counting, Target(), GetParam().closed);
  EXPECT_EQ(counting.bytes_read, 0u);
}

INSTANTIATE_TEST_SUITE_P(Of, ReaderPlaceTest, testing::ValuesIn(Readers()),
                         [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace dorvane
