#pragma once

namespace pv {

// Angles in double precision for drawings, the same to the last bit on every machine:
// the libraries' own functions differ from system to system, and with them the files
// that a drawing is made into.

struct PlaneTurn {
  double sin = 0.0;
  double cos = 1.0;
};

/// Of an angle in radians, to about 1e-15. NaN and infinities give NaN.
[[nodiscard]] PlaneTurn planeTurn(double radians);

/// The angle from the x axis to (x, y), from -pi to pi, to about 1e-15; 0 for (0, 0).
/// The numbers are finite and neither their squares nor their sum overflow.
[[nodiscard]] double planeAngle(double y, double x);

/// The square root of x^2 + y^2, which must not overflow.
[[nodiscard]] double planeLength(double x, double y);

}  // namespace pv
