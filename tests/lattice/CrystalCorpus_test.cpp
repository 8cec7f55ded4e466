// Replays the seeds of the fuzz target of the crystal library, and mutants of them.
#include <gtest/gtest.h>

#include "lattice/CrystalProperties.h"
#include "support/Mutants.h"

namespace dorvane {
namespace {

TEST(CrystalCorpus, CrystalReaderHoldsOnSeedsAndMutants) {
  ExpectHoldsOnSeedsAndMutants("crystal_fuzz", CrystalReaderHolds);
}

}  // namespace
}  // namespace dorvane
