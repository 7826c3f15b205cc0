#pragma once

#include <array>
#include <cstdint>
#include <cstdlib>

namespace pv::reference {

/// The C library's own `rand` from its unseeded start, where there is one by the
/// form that takes no lock at every number.
#ifdef __GLIBC__
class Random {
 public:
  Random() { initstate_r(1, state_.data(), state_.size(), &data_); }
  Random(const Random&) = delete;
  Random& operator=(const Random&) = delete;
  [[nodiscard]] std::int32_t next() {
    std::int32_t number = 0;
    random_r(&data_, &number);
    return number;
  }

 private:
  random_data data_{};  // points into state_
  std::array<char, 128> state_{};
};
#else
class Random {
 public:
  Random() { std::srand(1); }
  Random(const Random&) = delete;
  Random& operator=(const Random&) = delete;
  [[nodiscard]] std::int32_t next() { return std::rand(); }
};
#endif

}  // namespace pv::reference
