// Fuzzes the reader of angle-dispersive files.
#include <cstdlib>

#include "files/AnalyserProperties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (!dorvane::DacReaderHolds(std::as_bytes(std::span(data, size)))) std::abort();
  return 0;
}
