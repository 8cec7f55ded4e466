// Fuzzes the readers of the native spectrum files.
#include <cstdlib>

#include "files/ReaderProperties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (!dorvane::NativeReadersHold(std::as_bytes(std::span(data, size)))) std::abort();
  return 0;
}
