#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace pv {

/// For every choice of up to eight lanes, a bit each, the lanes that are chosen,
/// first to last, then the others.
inline constexpr auto kPackOrder = [] {
  std::array<std::array<std::int32_t, 8>, 256> order{};
  for (std::uint32_t bits = 0; bits < order.size(); ++bits) {
    std::size_t place = 0;
    for (const std::uint32_t wanted : {1U, 0U}) {
      for (std::uint32_t lane = 0; lane < 8; ++lane) {
        if ((bits >> lane & 1U) == wanted) {
          order[bits][place++] = static_cast<std::int32_t>(lane);
        }
      }
    }
  }
  return order;
}();

}  // namespace pv
