// The body of every fuzz target; PV_FUZZ_ENTRY names the entry that it runs.

#include <cstddef>
#include <cstdint>
#include <span>

#include "entries.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  pv::fuzz::PV_FUZZ_ENTRY(std::as_bytes(std::span(data, size)));
  return 0;
}
