#include "path/outline.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <span>

#include "math/plane_angles.h"

namespace pv {

namespace {

/// Gaps below this part of an outline's extent are rounding, not drawing.
constexpr double kGap = 1e-6;

double roughLength(PlanePoint from, const OutlinePiece& piece) {
  const double chord = distance(from, piece.end);
  if (piece.straight) {
    return chord;
  }
  const double polygon = distance(from, piece.control1) + distance(piece.control1, piece.control2) +
                         distance(piece.control2, piece.end);
  return (chord + polygon) / 2;
}

/// The larger side of the box around all the ends.
double extentOf(std::span<const Outline> outlines) {
  PlanePoint low{std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
  PlanePoint high = low * -1.0;
  const auto include = [&low, &high](PlanePoint p) {
    low = {std::min(low.x, p.x), std::min(low.y, p.y)};
    high = {std::max(high.x, p.x), std::max(high.y, p.y)};
  };
  for (const Outline& outline : outlines) {
    include(outline.start);
    for (const OutlinePiece& piece : outline.pieces) {
      include(piece.end);
    }
  }
  return std::max(high.x - low.x, high.y - low.y);
}

void append(Outline& to, Outline& from) {
  to.pieces.insert(to.pieces.end(), from.pieces.begin(), from.pieces.end());
  to.closed = false;
}

}  // namespace

double distance(PlanePoint a, PlanePoint b) {
  return planeLength(b.x - a.x, b.y - a.y);
}

Affine operator*(const Affine& outer, const Affine& inner) {
  const PlanePoint offset = outer.apply({inner.e, inner.f});
  return {outer.a * inner.a + outer.c * inner.b,
          outer.b * inner.a + outer.d * inner.b,
          outer.a * inner.c + outer.c * inner.d,
          outer.b * inner.c + outer.d * inner.d,
          offset.x,
          offset.y};
}

double roughLength(const Outline& outline) {
  double length = 0.0;
  PlanePoint from = outline.start;
  for (const OutlinePiece& piece : outline.pieces) {
    length += roughLength(from, piece);
    from = piece.end;
  }
  return length;
}

void transform(Outline& outline, const Affine& affine) {
  outline.start = affine.apply(outline.start);
  for (OutlinePiece& piece : outline.pieces) {
    piece.control1 = affine.apply(piece.control1);
    piece.control2 = affine.apply(piece.control2);
    piece.end = affine.apply(piece.end);
  }
}

std::vector<Outline> joinTouching(std::vector<Outline> outlines) {
  const double gap = kGap * extentOf(outlines);
  std::vector<Outline> joined;
  for (Outline& outline : outlines) {
    if (!joined.empty() && !joined.back().closed && !outline.closed &&
        distance(joined.back().end(), outline.start) <= gap) {
      append(joined.back(), outline);
    } else {
      joined.push_back(std::move(outline));
    }
  }
  return joined;
}

Outline joinAll(std::vector<Outline> outlines) {
  Outline all = std::move(outlines.front());
  for (Outline& outline : std::span(outlines).subspan(1)) {
    all.pieces.push_back({{}, {}, outline.start, true});
    append(all, outline);
  }
  return all;
}

void OutlinePen::moveTo(PlanePoint to) {
  if (!current_.pieces.empty()) {
    done_.push_back(std::move(current_));
  }
  current_ = {to, {}, false};
  position_ = to;
}

void OutlinePen::add(const OutlinePiece& piece) {
  current_.pieces.push_back(piece);
  position_ = piece.end;
  ++pieceCount_;
}

void OutlinePen::lineTo(PlanePoint to) {
  add({{}, {}, to, true});
}

void OutlinePen::curveTo(PlanePoint control1, PlanePoint control2, PlanePoint to) {
  if (control1 == position_ && control2 == to) {
    lineTo(to);
  } else {
    add({control1, control2, to, false});
  }
}

void OutlinePen::quadraticTo(PlanePoint control, PlanePoint to) {
  constexpr double kShare = 2.0 / 3;
  curveTo(position_ + (control - position_) * kShare, to + (control - to) * kShare, to);
}

void OutlinePen::close() {
  if (!current_.pieces.empty()) {
    if (distance(position_, current_.start) <= kGap * extentOf(std::span(&current_, 1))) {
      current_.pieces.back().end = current_.start;
    } else {
      lineTo(current_.start);
    }
    current_.closed = true;
  }
  moveTo(current_.start);
}

std::vector<Outline> OutlinePen::take() {
  moveTo({});
  pieceCount_ = 0;
  return std::exchange(done_, {});
}

}  // namespace pv
