// Which forms of vector code this processor can run, as <hwy/targets.h> declares it, where
// Highway's library would have to be loaded for that (cmake/PvVectors.cmake).
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "math/simd.h"
// clang-format off
#include <hwy/targets.h>
// clang-format on

namespace hwy {
namespace {

// The builtin asks the system too, which must keep wide registers for each thread.
std::int64_t targetsOfProcessor() {
  __builtin_cpu_init();
  const bool sse4 = __builtin_cpu_supports("sse4.2") && __builtin_cpu_supports("popcnt") &&
                    __builtin_cpu_supports("pclmul") && __builtin_cpu_supports("aes");
  // Every processor with these has F16C and LZCNT too, which not all compilers ask for.
  const bool avx2 = sse4 && __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma") &&
                    __builtin_cpu_supports("bmi") && __builtin_cpu_supports("bmi2");
  const bool avx3 = avx2 && __builtin_cpu_supports("avx512f") &&
                    __builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512dq") &&
                    __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512cd");
  return HWY_EMU128 | HWY_SCALAR | (sse4 ? HWY_SSE4 : 0) | (avx2 ? HWY_AVX2 : 0) |
         (avx3 ? HWY_AVX3 : 0);
}

}  // namespace

std::int64_t SupportedTargets() {
  static const std::int64_t targets = targetsOfProcessor();
  return targets;
}

ChosenTarget& GetChosenTarget() {
  static ChosenTarget chosen;
  return chosen;
}

// What Highway's own checks end with, where they are compiled in.
void Abort(const char* file, int line, const char* format, ...) {  // NOLINT(cert-dcl50-cpp)
  std::fprintf(stderr, "%s:%d: ", file, line);
  va_list arguments;
  va_start(arguments, format);
  std::vfprintf(stderr, format, arguments);
  va_end(arguments);
  std::fputc('\n', stderr);
  std::abort();
}

}  // namespace hwy
