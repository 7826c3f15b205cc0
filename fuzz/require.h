#pragma once

#include <cstdio>
#include <cstdlib>

namespace pv::fuzz {

/// Ends the process unless `holds`.
inline void require(bool holds, const char* what) {
  if (!holds) {
    std::fprintf(stderr, "broken promise: %s\n", what);
    std::abort();
  }
}

}  // namespace pv::fuzz
