// Fuzzes the reader of the settings file.
#include <cstdlib>

#include "files/ParaProperties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (!dorvane::IniReaderHolds(std::as_bytes(std::span(data, size)))) std::abort();
  return 0;
}
