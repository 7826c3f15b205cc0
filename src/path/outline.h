#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace pv {

/// A position in the plane of a drawing, in whatever unit the drawing has.
struct PlanePoint {
  double x = 0.0;
  double y = 0.0;

  bool operator==(const PlanePoint&) const = default;
};

[[nodiscard]] constexpr PlanePoint operator+(PlanePoint a, PlanePoint b) {
  return {a.x + b.x, a.y + b.y};
}
[[nodiscard]] constexpr PlanePoint operator-(PlanePoint a, PlanePoint b) {
  return {a.x - b.x, a.y - b.y};
}
[[nodiscard]] constexpr PlanePoint operator*(PlanePoint a, double factor) {
  return {a.x * factor, a.y * factor};
}
[[nodiscard]] double distance(PlanePoint a, PlanePoint b);

/// (x, y) becomes (a x + c y + e, b x + d y + f).
struct Affine {
  double a = 1.0;
  double b = 0.0;
  double c = 0.0;
  double d = 1.0;
  double e = 0.0;
  double f = 0.0;

  [[nodiscard]] constexpr PlanePoint apply(PlanePoint p) const {
    return {a * p.x + c * p.y + e, b * p.x + d * p.y + f};
  }
};

/// Applies `inner` first.
[[nodiscard]] Affine operator*(const Affine& outer, const Affine& inner);

/// From where the piece before it ended: a straight line, or a cubic Bezier
/// curve with two control points.
struct OutlinePiece {
  PlanePoint control1;
  PlanePoint control2;
  PlanePoint end;
  bool straight = true;
};

/// A line through a drawing, drawn without lifting the pen. A closed one ends
/// exactly on its start.
struct Outline {
  PlanePoint start;
  std::vector<OutlinePiece> pieces;
  bool closed = false;

  [[nodiscard]] PlanePoint end() const { return pieces.empty() ? start : pieces.back().end; }
};

/// Near enough for choosing among outlines: a curve counts as the mean of its
/// chord and its control polygon.
[[nodiscard]] double roughLength(const Outline& outline);

void transform(Outline& outline, const Affine& affine);

/// Appends each open outline to the one before it when it starts where that one
/// ended, to a millionth of the drawing.
[[nodiscard]] std::vector<Outline> joinTouching(std::vector<Outline> outlines);

/// All in one, in order, with straight lines in between. At least one outline.
[[nodiscard]] Outline joinAll(std::vector<Outline> outlines);

/// An arc of an ellipse in the terms of SVG: radii, the turn of its axes in
/// degrees, and which of the four arcs between two points it is.
struct EllipseArc {
  double radiusX = 0.0;
  double radiusY = 0.0;
  double rotation = 0.0;
  bool large = false;
  bool sweep = false;
};

/// Draws outlines. Starts at the origin; what is drawn after close() without a
/// moveTo() begins a new outline at the closed one's start.
class OutlinePen {
 public:
  [[nodiscard]] PlanePoint position() const { return position_; }
  [[nodiscard]] std::size_t pieceCount() const { return pieceCount_; }

  void moveTo(PlanePoint to);
  void lineTo(PlanePoint to);
  void curveTo(PlanePoint control1, PlanePoint control2, PlanePoint to);
  void quadraticTo(PlanePoint control, PlanePoint to);
  void arcTo(EllipseArc arc, PlanePoint to);
  /// A line to the start, unless the pen is there already to a millionth.
  void close();

  /// Everything drawn so far; the pen is as new afterwards.
  [[nodiscard]] std::vector<Outline> take();

 private:
  void add(const OutlinePiece& piece);

  std::vector<Outline> done_;
  Outline current_;
  PlanePoint position_;
  std::size_t pieceCount_ = 0;
};

/// A closed ellipse from its rightmost point, first towards larger y.
void drawEllipse(OutlinePen& pen, PlanePoint centre, double radiusX, double radiusY);

struct RoundedRect {
  PlanePoint corner;
  double width = 0.0;
  double height = 0.0;
  double radiusX = 0.0;  ///< 0 to half the width; 0: sharp corners
  double radiusY = 0.0;
};

/// A closed rectangle from its first corner, first towards larger x.
void drawRect(OutlinePen& pen, const RoundedRect& rect);

}  // namespace pv
