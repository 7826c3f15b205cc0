#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "math/simd.h"
// clang-format off
#include <hwy/highway.h>
#include <hwy/targets.h>
// clang-format on

namespace pv {

// Unoptimised and watched, a frame takes fifty times as long.
#ifdef __SANITIZE_ADDRESS__
inline constexpr bool kIsWatched = true;
#else
inline constexpr bool kIsWatched = false;
#endif

/// The vector forms of this machine, the scalar one included. Until this is gone one
/// of them may be chosen; then it is the best one again.
class VectorFormChoice {
 public:
  VectorFormChoice() : forms_(hwy::SupportedAndGeneratedTargets()) {}
  ~VectorFormChoice() { hwy::GetChosenTarget().Update(hwy::SupportedTargets()); }
  VectorFormChoice(const VectorFormChoice&) = delete;
  VectorFormChoice& operator=(const VectorFormChoice&) = delete;
  VectorFormChoice(VectorFormChoice&&) = delete;
  VectorFormChoice& operator=(VectorFormChoice&&) = delete;

  [[nodiscard]] std::size_t size() const { return forms_.size(); }
  /// Chooses one of them, and after the last the first again. Returns its name.
  std::string choose(std::size_t i) {
    const std::int64_t form = forms_[i % forms_.size()];
    hwy::GetChosenTarget().Update(form);
    return hwy::TargetName(form);
  }

 private:
  std::vector<std::int64_t> forms_;
};

}  // namespace pv
