#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace pv {

/// Degrees to radians. The product is taken in single precision, just before a
/// matrix call, so that every stored angle stays in degrees.
inline constexpr float kRadiansPerDegree = 0.017453292F;

[[nodiscard]] constexpr float toRadians(float degrees) {
  return degrees * kRadiansPerDegree;
}

/// Float to integer, truncated toward zero and saturated at the ends of the
/// 32-bit range; NaN gives 0.
[[nodiscard]] constexpr std::int32_t truncate(float value) {
  constexpr float kLimit = 2147483648.0F;  // 2^31, exact in single precision
  if (value >= kLimit) {
    return std::numeric_limits<std::int32_t>::max();
  }
  if (value <= -kLimit) {
    return std::numeric_limits<std::int32_t>::min();
  }
  return value == value ? static_cast<std::int32_t>(value) : 0;
}

struct SinCos {
  float sin = 0.0F;
  float cos = 1.0F;
};

// (sin r / r - 1) / r^2 and (cos r - 1) / r^2 as polynomials in r^2, lowest power
// first: interpolated at the Chebyshev nodes of 0 <= r <= pi/4, in 60 digits. The
// sine's relative error is below 2^-45, the cosine's below 2^-41.
inline constexpr double kSineTerms[] = {-0.16666666666663885, 0.008333333331079221,
                                        -0.00019841266916984215, 2.7555990929035673e-06,
                                        -2.4805636192775312e-08};
inline constexpr double kCosineTerms[] = {-0.4999999999996389, 0.04166666663739605,
                                          -0.0013888885091396927, 2.4799862189460856e-05,
                                          -2.723714035433242e-07};

/// Sine and cosine of an angle in radians, the same to the last bit on every
/// machine: only additions, multiplications and exact operations, in double.
/// The argument is reduced to [-pi/4, pi/4] by subtracting quarter turns (in two
/// parts, after Cody and Waite, "Software Manual for the Elementary Functions",
/// 1980), then the polynomials above are summed, which leaves an error far below
/// single precision. NaN and infinities give NaN.
[[nodiscard]] inline SinCos sinCos(float radians) {
  constexpr double kTwoOverPi = 0.63661977236758134308;
  constexpr double kQuarterTurnHigh = 1.57079632673412561417e+00;  // first 33 bits of pi/2
  constexpr double kQuarterTurnLow = 6.07710050650619224932e-11;   // pi/2 less the above
  constexpr double kRoundToInteger = 6755399441055744.0;           // 1.5 * 2^52
  constexpr double kFullTurn = 6.28318530717958647693;
  constexpr double kReducible = 1.0e6;  // up to here the two-part product is exact

  if (radians == 0.0F) {
    return {};  // what comes out below too
  }
  auto x = static_cast<double>(radians);
  if (!(x > -kReducible && x < kReducible)) {
    x = std::remainder(x, kFullTurn);  // exact by definition, hence portable
  }
  const double quarters = (x * kTwoOverPi + kRoundToInteger) - kRoundToInteger;
  const double r = (x - quarters * kQuarterTurnHigh) - quarters * kQuarterTurnLow;
  const double r2 = r * r;
  const auto series = [r2](const double(&c)[5]) {
    return c[0] + r2 * (c[1] + r2 * (c[2] + r2 * (c[3] + r2 * c[4])));
  };
  const double s = r + r * r2 * series(kSineTerms);
  const double c = 1.0 + r2 * series(kCosineTerms);
  if (r != r) {
    return {static_cast<float>(r), static_cast<float>(r)};
  }
  const int quadrant = static_cast<int>(quarters) & 3;
  const bool swapped = (quadrant & 1) != 0;
  const double sine = swapped ? c : s;
  const double cosine = swapped ? s : c;
  return {static_cast<float>((quadrant & 2) != 0 ? -sine : sine),
          static_cast<float>(((quadrant + 1) & 2) != 0 ? -cosine : cosine)};
}

}  // namespace pv
