#include <algorithm>
#include <cstdint>
#include <fstream>
#include <gtest/gtest.h>
#include <initializer_list>
#include <iterator>
#include <set>
#include <sstream>
#include <string>

#include "math/simd.h"
// clang-format off
#include <hwy/targets.h>
// clang-format on

namespace pv {
namespace {

// What the system says of the first processor; empty where it says it another way.
std::set<std::string> processorFlags() {
  std::ifstream file("/proc/cpuinfo");
  std::string line;
  while (std::getline(file, line)) {
    if (line.starts_with("flags")) {
      std::istringstream words(line.substr(line.find(':') + 1));
      return {std::istream_iterator<std::string>(words), {}};
    }
  }
  return {};
}

// A form too many would be an illegal instruction, one too few several times the time.
TEST(VectorTargets, AreWhatTheProcessorCanRun) {
  const std::set<std::string> flags = processorFlags();
  if (flags.empty()) {
    GTEST_SKIP() << "the system does not tell what its processor can do";
  }
  const auto all = [&flags](std::initializer_list<const char*> names) {
    return std::ranges::all_of(names, [&](const char* name) { return flags.contains(name); });
  };
  const bool sse4 = all({"sse4_1", "sse4_2", "popcnt", "pclmulqdq", "aes"});
  const bool avx2 = sse4 && all({"avx2", "fma", "bmi1", "bmi2"});
  const bool avx3 = avx2 && all({"avx512f", "avx512vl", "avx512dq", "avx512bw", "avx512cd"});
  const std::int64_t targets = hwy::SupportedTargets();
  EXPECT_EQ((targets & HWY_SSE4) != 0, sse4);
  EXPECT_EQ((targets & HWY_AVX2) != 0, avx2);
  EXPECT_EQ((targets & HWY_AVX3) != 0, avx3);
  EXPECT_NE(targets & HWY_EMU128, 0);
}

}  // namespace
}  // namespace pv
