#include "math/plane_angles.h"

#include <cmath>
#include <numbers>

namespace pv {
namespace {

constexpr double kFullTurn = 2 * std::numbers::pi;

/// sin r = r * (1 - r^2 / (2 * 3) * (1 - r^2 / (4 * 5) * ...)), and the cosine likewise
/// from 1 * 2 on; up to pi / 4 the terms that are left out are below 1e-19.
double series(double r2, int first) {
  constexpr int kTerms = 9;
  double sum = 1.0;
  for (int i = kTerms; i-- > 0;) {
    const int k = first + 2 * i;
    sum = 1.0 - r2 / (k * (k + 1)) * sum;
  }
  return sum;
}

}  // namespace

PlaneTurn planeTurn(double radians) {
  constexpr double kReducible = 1.0e6;
  // pi / 2 in parts of 33, 33 and 53 bits; whole multiples of the first two are exact.
  constexpr double kQuarterTurn[] = {1.57079632673412561417e+00, 6.07710050630396597660e-11,
                                     2.02226624879595063154e-21};
  double x = radians;
  if (!(x > -kReducible && x < kReducible)) {
    x = std::remainder(x, kFullTurn);  // exact by definition
    if (x != x) {
      return {x, x};
    }
  }
  const double quarters = std::nearbyint(x / kQuarterTurn[0]);
  double r = x;
  for (const double part : kQuarterTurn) {
    r -= quarters * part;
  }
  const double sine = r * series(r * r, 2);
  const double cosine = series(r * r, 1);
  const PlaneTurn turns[] = {{sine, cosine}, {cosine, -sine}, {-sine, -cosine}, {-cosine, sine}};
  return turns[static_cast<unsigned>(static_cast<int>(quarters)) & 3U];
}

double planeAngle(double y, double x) {
  if (x == 0.0 && y == 0.0) {
    return 0.0;
  }
  constexpr double kQuarterTurn = std::numbers::pi / 2;
  const bool steep = std::abs(y) > std::abs(x);
  const double slope = steep ? x / y : y / x;
  double angle = slope * (std::numbers::pi / 4);  // off by 0.08 at most
  if (steep) {
    angle = (y > 0 ? kQuarterTurn : -kQuarterTurn) - angle;
  } else if (x < 0) {
    angle += std::signbit(y) ? -std::numbers::pi : std::numbers::pi;
  }
  // What is left of the angle after a turn back by the estimate, as the sine that it
  // nearly is: each round cubes the fault.
  const double length = planeLength(x, y);
  for (int i = 0; i < 3; ++i) {
    const auto [sine, cosine] = planeTurn(angle);
    angle += (y * cosine - x * sine) / length;
  }
  return angle;
}

double planeLength(double x, double y) {
  return std::sqrt(x * x + y * y);
}

}  // namespace pv
