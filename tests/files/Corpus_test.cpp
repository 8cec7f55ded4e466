// Replays the seeds of the fuzz targets of files, and mutants of them.
#include <gtest/gtest.h>

#include "files/AnalyserProperties.h"
#include "files/ParaProperties.h"
#include "files/ReaderProperties.h"
#include "support/Mutants.h"

namespace dorvane {
namespace {

// Channels and peaks of the tables: none, the last one that is kept, one more, the largest numbers.
const std::vector<int> kCounts = {-32768, -1, 0, 1, 100, 101, 8192, 8193, 32767};

TEST(Corpus, NativeReadersHoldOnSeedsAndMutants) {
  const EdgeField save_flag{2, 2, {-1, 0, 1, 2}};
  const EdgeField channels{2068, 2, kCounts};
  const EdgeField peaks_without_channels{2070, 2, kCounts};
  ExpectHoldsOnSeedsAndMutants("native_fuzz", NativeReadersHold,
                               {save_flag, channels, peaks_without_channels});
}

TEST(Corpus, NpdReaderHoldsOnSeedsAndMutants) {
  ExpectHoldsOnSeedsAndMutants("npd_fuzz", NpdReaderHolds);
}

TEST(Corpus, ParaReaderHoldsOnSeedsAndMutants) {
  ExpectHoldsOnSeedsAndMutants("para_fuzz", ParaReaderHolds);
}

TEST(Corpus, IniReaderHoldsOnSeedsAndMutants) {
  ExpectHoldsOnSeedsAndMutants("ini_fuzz", IniReaderHolds);
}

TEST(Corpus, ReportReaderHoldsOnSeedsAndMutants) {
  ExpectHoldsOnSeedsAndMutants("rpt_fuzz", RptReaderHolds);
}

TEST(Corpus, CnfReaderHoldsOnSeedsAndMutants) {
  const EdgeField layout{11, 1, {0, 163, 164, 165, 182, 255}};
  ExpectHoldsOnSeedsAndMutants("cnf_fuzz", CnfReaderHolds, {layout});
}

TEST(Corpus, ChnReaderHoldsOnSeedsAndMutants) {
  const EdgeField channels{30, 2, {0, 1, 16, 17, 8192, 8193, 16384, 65535}};
  ExpectHoldsOnSeedsAndMutants("chn_fuzz", ChnReaderHolds, {channels});
}

TEST(Corpus, DacReaderHoldsOnSeedsAndMutants) {
  ExpectHoldsOnSeedsAndMutants("dac_fuzz", DacReaderHolds);
}

}  // namespace
}  // namespace dorvane
