#include "batch/Analysis.h"

#include <gmock/gmock.h>

#include "batch/BatchError.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

using testing::StartsWith;

class LockedFiles : public SystemFileLayer {
 public:
  int OpenForReading(const std::string&) override { throw Fault(FaultCode::PermissionDenied); }
};

class LargeFiles : public SystemFileLayer {
 public:
  std::optional<FileInfo> Info(const std::string&) override {
    FileInfo info;
    info.size = kLargestFile + 1;
    return info;
  }
};

std::string WhyNotAnalysed(FileLayer& files) {
  const AnalysisRequest request;
  const auto library = std::make_unique<CrystalLibrary>();
  try {
    AnalysisRun(files, *library, request, DORVANE_SOURCE_DIR "/samples/gold_ambient.npd");
  } catch (const BatchError& error) {
    return error.what();
  }
  return "analysed";
}

TEST(AnalysisRun, FileThatMayNotBeOpenedIsNotCalledBroken) {
  LockedFiles files;
  EXPECT_THAT(WhyNotAnalysed(files), StartsWith("Permission denied"));
}

TEST(AnalysisRun, HugeFileIsCalledTooLarge) {
  LargeFiles files;
  EXPECT_EQ(WhyNotAnalysed(files), "too large for a spectrum");
}

}  // namespace
}  // namespace dorvane
