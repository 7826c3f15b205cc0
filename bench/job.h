#pragma once

#include <cstdint>
#include <functional>
#include <span>

namespace pv::bench {

/// Work that can be done again and again. It keeps its memory in between.
struct Job {
  std::function<void()> run;
  std::function<std::span<const std::uint32_t>()> pixels;  ///< what run drew, if it draws
};

}  // namespace pv::bench
