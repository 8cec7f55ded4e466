// Fuzzes the reader of the parameter file.
#include <cstdlib>

#include "files/ParaProperties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (!dorvane::ParaReaderHolds(std::as_bytes(std::span(data, size)))) std::abort();
  return 0;
}
