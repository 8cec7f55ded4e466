// Fuzzes the reader of the crystal library.
#include <cstdlib>

#include "lattice/CrystalProperties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (!dorvane::CrystalReaderHolds(std::as_bytes(std::span(data, size)))) std::abort();
  return 0;
}
