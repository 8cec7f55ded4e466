// Replays the seeds of the fuzz targets and mutants of them.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>

#include "files/AnalyserProperties.h"
#include "files/ParaProperties.h"
#include "files/ReaderProperties.h"

namespace dorvane {
namespace {

constexpr int kMutants = 2000;

class Mutator {
 public:
  explicit Mutator(std::vector<ByteVector> seeds) : seeds_(std::move(seeds)) {}

  ByteVector Next() {
    ByteVector bytes = seeds_[Below(seeds_.size())];
    for (std::size_t changes = 1 + Below(4); changes > 0; --changes) Change(bytes);
    return bytes;
  }

 private:
  std::size_t Below(std::size_t end) { return random_() % end; }

  void Change(ByteVector& bytes) {
    if (bytes.empty()) return;
    const std::size_t at = Below(bytes.size());
    const auto place = bytes.begin() + static_cast<std::ptrdiff_t>(at);
    switch (Below(6)) {
      case 0:
        *place = static_cast<std::byte>(random_());
        break;
      case 1:
        bytes.resize(at);
        break;
      case 2:
        bytes.erase(place, place + static_cast<std::ptrdiff_t>(
                                       std::min<std::size_t>(Below(40), bytes.size() - at)));
        break;
      case 3:
        bytes.insert(place, Below(40), static_cast<std::byte>(random_()));
        break;
      case 4: {  // the signs that texts are made of
        constexpr std::string_view kSigns = ",=- .\r\n09eED";
        *place = static_cast<std::byte>(kSigns[Below(kSigns.size())]);
        break;
      }
      default: {  // counts at the edges of their ranges, where native files hold them
        constexpr std::array<std::size_t, 3> kPlaces = {2, 2068, 2070};
        constexpr std::array<int, 7> kCounts = {-32768, -1, 1, 100, 101, 8192, 32767};
        const std::size_t count_at = kPlaces[Below(kPlaces.size())];
        const int count = kCounts[Below(kCounts.size())];
        if (count_at + 2 > bytes.size()) return;
        bytes[count_at] = static_cast<std::byte>(count & 0xFF);
        bytes[count_at + 1] = static_cast<std::byte>((count >> 8) & 0xFF);
      }
    }
  }

  std::vector<ByteVector> seeds_;
  std::mt19937 random_{20240607};
};

std::vector<ByteVector> Corpus(const std::string& target) {
  std::vector<std::string> paths;
  const std::string folder = std::string(DORVANE_SOURCE_DIR) + "/fuzz/corpus/" + target;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    paths.push_back(entry.path().string());
  }
  std::sort(paths.begin(), paths.end());  // the same mutants on every machine
  SystemFileLayer files;
  std::vector<ByteVector> seeds;
  for (const std::string& path : paths) seeds.push_back(ReadFile(files, path));
  return seeds;
}

template <typename Property>
void ExpectHolds(const std::string& target, Property holds) {
  const auto seeds = Corpus(target);
  ASSERT_GE(seeds.size(), 5u);
  for (const ByteVector& seed : seeds) EXPECT_TRUE(holds(seed));
  Mutator mutator(seeds);
  for (int i = 0; i < kMutants; ++i) EXPECT_TRUE(holds(mutator.Next())) << "mutant " << i;
}

TEST(Corpus, NativeReadersHoldOnSeedsAndMutants) {
  ExpectHolds("native_fuzz", NativeReadersHold);
}

TEST(Corpus, NpdReaderHoldsOnSeedsAndMutants) {
  ExpectHolds("npd_fuzz", NpdReaderHolds);
}

TEST(Corpus, ParaReaderHoldsOnSeedsAndMutants) {
  ExpectHolds("para_fuzz", ParaReaderHolds);
}

TEST(Corpus, IniReaderHoldsOnSeedsAndMutants) {
  ExpectHolds("ini_fuzz", IniReaderHolds);
}

TEST(Corpus, ReportReaderHoldsOnSeedsAndMutants) {
  ExpectHolds("rpt_fuzz", RptReaderHolds);
}

TEST(Corpus, CnfReaderHoldsOnSeedsAndMutants) {
  ExpectHolds("cnf_fuzz", CnfReaderHolds);
}

TEST(Corpus, ChnReaderHoldsOnSeedsAndMutants) {
  ExpectHolds("chn_fuzz", ChnReaderHolds);
}

TEST(Corpus, DacReaderHoldsOnSeedsAndMutants) {
  ExpectHolds("dac_fuzz", DacReaderHolds);
}

}  // namespace
}  // namespace dorvane
