// Arcs, ellipses and rectangles as cubic curves.

#include <algorithm>
#include <cmath>
#include <numbers>

#include "math/plane_angles.h"
#include "path/outline.h"

namespace pv {

namespace {

constexpr double kQuarterTurn = std::numbers::pi / 2;

/// How far the control points of a quarter circle stand off, in radii.
constexpr double kQuarterReach = 0.55228474983079339840;

/// Radii below this, and ends this near, make a line of an arc; whatever is
/// divided by them stays in range.
constexpr double kLeastRadius = 1e-12;
constexpr double kLeastSquare = 1e-100;

/// Maps the unit circle onto the arc's ellipse.
struct ArcFrame {
  Affine toPlane;
  PlanePoint start;  ///< on the unit circle, as is the end
  PlanePoint end;
};

PlaneTurn turnOf(const EllipseArc& arc) {
  return planeTurn(arc.rotation * (std::numbers::pi / 180));
}

ArcFrame frameOf(const EllipseArc& arc, PlanePoint from, PlanePoint to, PlanePoint half,
                 double square) {
  const PlaneTurn turn = turnOf(arc);
  const double grow = std::sqrt(std::max(1.0, square));  // radii too small to reach
  const double rx = arc.radiusX * grow;
  const double ry = arc.radiusY * grow;
  const PlanePoint u = half * (1 / grow);
  const double side = std::sqrt(std::max(0.0, 1 / std::min(square, 1.0) - 1));
  const double sign = arc.large == arc.sweep ? -side : side;
  const PlanePoint centre{sign * u.y, -sign * u.x};

  ArcFrame frame;
  frame.toPlane = {rx * turn.cos, rx * turn.sin, -ry * turn.sin, ry * turn.cos, 0.0, 0.0};
  const PlanePoint middle = (from + to) * 0.5 + frame.toPlane.apply(centre);
  frame.toPlane.e = middle.x;
  frame.toPlane.f = middle.y;
  frame.start = u - centre;
  frame.end = u * -1.0 - centre;
  return frame;
}

/// The angle from start to end on the unit circle, in the sweep's direction.
double sweptAngle(const ArcFrame& frame, bool sweep) {
  const double angle =
      planeAngle(frame.end.y, frame.end.x) - planeAngle(frame.start.y, frame.start.x);
  if (sweep) {
    return angle < 0 ? angle + 4 * kQuarterTurn : angle;
  }
  return angle > 0 ? angle - 4 * kQuarterTurn : angle;
}

/// A quarter ellipse; `corner` is where the tangents of its ends meet.
void quarterTo(OutlinePen& pen, PlanePoint corner, PlanePoint to) {
  const PlanePoint from = pen.position();
  pen.curveTo(from + (corner - from) * kQuarterReach, to + (corner - to) * kQuarterReach, to);
}

}  // namespace

void OutlinePen::arcTo(EllipseArc arc, PlanePoint to) {
  arc.radiusX = std::abs(arc.radiusX);
  arc.radiusY = std::abs(arc.radiusY);
  if (std::min(arc.radiusX, arc.radiusY) < kLeastRadius) {
    lineTo(to);
    return;
  }
  const PlaneTurn turn = turnOf(arc);
  const PlanePoint gap = (position_ - to) * 0.5;
  const PlanePoint half{(turn.cos * gap.x + turn.sin * gap.y) / arc.radiusX,
                        (turn.cos * gap.y - turn.sin * gap.x) / arc.radiusY};
  const double square = half.x * half.x + half.y * half.y;
  if (!(square > kLeastSquare)) {
    if (!(to == position_)) {
      lineTo(to);
    }
    return;
  }
  const ArcFrame frame = frameOf(arc, position_, to, half, square);
  const double angle = sweptAngle(frame, arc.sweep);
  int parts = 1;
  while (parts < 4 && std::abs(angle) > parts * kQuarterTurn * 1.000001) {
    ++parts;
  }
  const PlaneTurn quarter = planeTurn(angle / parts / 4);
  const double reach = 4.0 / 3 * quarter.sin / quarter.cos;
  const double first = planeAngle(frame.start.y, frame.start.x);
  PlanePoint at = frame.start;
  for (int part = 1; part <= parts; ++part) {
    const double next = first + angle * part / parts;
    const PlaneTurn turned = planeTurn(next);
    const PlanePoint end{turned.cos, turned.sin};
    const PlanePoint control1{at.x - reach * at.y, at.y + reach * at.x};
    const PlanePoint control2{end.x + reach * end.y, end.y - reach * end.x};
    curveTo(frame.toPlane.apply(control1), frame.toPlane.apply(control2),
            part == parts ? to : frame.toPlane.apply(end));
    at = end;
  }
}

void drawEllipse(OutlinePen& pen, PlanePoint centre, double radiusX, double radiusY) {
  const auto at = [&](double x, double y) { return centre + PlanePoint{x * radiusX, y * radiusY}; };
  pen.moveTo(at(1, 0));
  quarterTo(pen, at(1, 1), at(0, 1));
  quarterTo(pen, at(-1, 1), at(-1, 0));
  quarterTo(pen, at(-1, -1), at(0, -1));
  quarterTo(pen, at(1, -1), at(1, 0));
  pen.close();
}

void drawRect(OutlinePen& pen, const RoundedRect& rect) {
  const double rx = rect.radiusX;
  const double ry = rect.radiusY;
  const bool round = rx > 0 && ry > 0;
  const PlanePoint low = rect.corner;
  const PlanePoint high = low + PlanePoint{rect.width, rect.height};
  const auto turnAt = [&](PlanePoint corner, PlanePoint before, PlanePoint after) {
    pen.lineTo(round ? corner + before : corner);
    if (round) {
      quarterTo(pen, corner, corner + after);
    }
  };
  pen.moveTo(round ? low + PlanePoint{rx, 0} : low);
  turnAt({high.x, low.y}, {-rx, 0}, {0, ry});
  turnAt(high, {0, -ry}, {-rx, 0});
  turnAt({low.x, high.y}, {rx, 0}, {0, -ry});
  if (round) {
    turnAt(low, {0, ry}, {rx, 0});
  }
  pen.close();
}

}  // namespace pv
