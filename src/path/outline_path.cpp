#include "path/outline_path.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <vector>

#include "math/plane_angles.h"

namespace pv {

namespace {

/// How far the path may stray from a curve, in parts of the drawing's larger half.
constexpr double kTolerance = 1e-3;

/// Directions that differ by more than some ten degrees make a corner.
constexpr double kSmoothCosine = 0.985;

/// Pieces of mixed outlines below this part of the extent are rounding.
constexpr double kNoLength = 1e-9;

/// Extents below this cannot be told from nothing.
constexpr double kLeastExtent = 1e-30;

/// The outline as many short lines, in runs from corner to corner.
struct FineLine {
  struct Run {
    std::size_t first;
    std::size_t last;
    bool straight;
    std::int32_t steps = 1;
  };
  std::vector<PlanePoint> points;
  std::vector<double> along;  ///< length from the start to each point
  std::vector<Run> runs;
};

struct Box {
  PlanePoint low{std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
  PlanePoint high = low * -1.0;

  [[nodiscard]] double extent() const { return std::max(high.x - low.x, high.y - low.y); }
};

Box boxOf(std::span<const PlanePoint> points) {
  Box box;
  for (const PlanePoint p : points) {
    box.low = {std::min(box.low.x, p.x), std::min(box.low.y, p.y)};
    box.high = {std::max(box.high.x, p.x), std::max(box.high.y, p.y)};
  }
  return box;
}

PlanePoint onCurve(PlanePoint from, const OutlinePiece& curve, double t) {
  const double s = 1.0 - t;
  return from * (s * s * s) + curve.control1 * (3 * s * s * t) + curve.control2 * (3 * s * t * t) +
         curve.end * (t * t * t);
}

/// The first of the points that lies apart from `from`, as a direction.
PlanePoint direction(PlanePoint from, std::initializer_list<PlanePoint> points) {
  for (const PlanePoint p : points) {
    if (!(p == from)) {
      return p - from;
    }
  }
  return {};
}

bool isSmooth(PlanePoint a, PlanePoint b) {
  return a.x * b.x + a.y * b.y >= kSmoothCosine * planeLength(a.x, a.y) * planeLength(b.x, b.y);
}

class Flattener {
 public:
  /// `leastLength`: shorter pieces are left out.
  Flattener(const Outline& outline, double leastLength) : leastLength_(leastLength) {
    const auto curves = static_cast<std::size_t>(
        std::count_if(outline.pieces.begin(), outline.pieces.end(),
                      [](const OutlinePiece& piece) { return !piece.straight; }));
    constexpr std::size_t kCurvePoints = 1U << 18U;
    curveSteps_ = std::clamp<std::size_t>(kCurvePoints / std::max<std::size_t>(curves, 1), 4, 256);
    line_.points.push_back(outline.start);
    line_.along.push_back(0.0);
    for (const OutlinePiece& piece : outline.pieces) {
      addPiece(piece);
    }
    line_.points.back() = outline.end();
  }

  [[nodiscard]] FineLine take() { return std::move(line_); }

 private:
  void addPoint(PlanePoint p) {
    line_.along.push_back(line_.along.back() + distance(line_.points.back(), p));
    line_.points.push_back(p);
  }

  void addPiece(const OutlinePiece& piece) {
    const PlanePoint from = line_.points.back();
    const std::size_t first = line_.points.size() - 1;
    const std::size_t steps = piece.straight ? 1 : curveSteps_;
    for (std::size_t i = 1; i < steps; ++i) {
      addPoint(onCurve(from, piece, static_cast<double>(i) / static_cast<double>(steps)));
    }
    addPoint(piece.end);
    if (line_.along.back() - line_.along[first] < leastLength_) {
      line_.points.resize(first + 1);
      line_.along.resize(first + 1);
      return;
    }
    const PlanePoint starts = piece.straight
                                  ? piece.end - from
                                  : direction(from, {piece.control1, piece.control2, piece.end});
    const bool goesOn = !piece.straight && !line_.runs.empty() && !line_.runs.back().straight &&
                        isSmooth(ending_, starts);
    if (goesOn) {
      line_.runs.back().last = line_.points.size() - 1;
    } else {
      line_.runs.push_back({first, line_.points.size() - 1, piece.straight});
    }
    ending_ = direction(piece.end, {piece.control2, piece.control1, from}) * -1.0;
  }

  FineLine line_;
  double leastLength_;
  std::size_t curveSteps_ = 0;
  PlanePoint ending_;  ///< direction in which the last piece ended, for curves
};

/// Walks along a run, to points at ever greater lengths.
class Walker {
 public:
  Walker(const FineLine& line, const FineLine::Run& run) : line_(line), run_(run), at_(run.first) {}

  /// The end of step `step` of `steps` equal ones; the run's ends exactly.
  PlanePoint step(std::int32_t step, std::int32_t steps) {
    if (step >= steps) {
      at_ = run_.last;
      return line_.points[run_.last];
    }
    const double begin = line_.along[run_.first];
    const double length = begin + (line_.along[run_.last] - begin) * step / steps;
    while (at_ + 1 < run_.last && line_.along[at_ + 1] < length) {
      ++at_;
    }
    const double gap = line_.along[at_ + 1] - line_.along[at_];
    const double part = gap > 0 ? std::clamp((length - line_.along[at_]) / gap, 0.0, 1.0) : 0.0;
    return line_.points[at_] + (line_.points[at_ + 1] - line_.points[at_]) * part;
  }
  /// Index of the point at or before the last step's end.
  [[nodiscard]] std::size_t index() const { return at_; }

 private:
  const FineLine& line_;
  const FineLine::Run& run_;
  std::size_t at_;
};

double distanceToChord(PlanePoint p, PlanePoint a, PlanePoint b) {
  const PlanePoint chord = b - a;
  const double square = chord.x * chord.x + chord.y * chord.y;
  const PlanePoint toPoint = p - a;
  const double part =
      square > 0 ? std::clamp((toPoint.x * chord.x + toPoint.y * chord.y) / square, 0.0, 1.0) : 0.0;
  return distance(toPoint, chord * part);
}

bool isCloseEnough(const FineLine& line, const FineLine::Run& run, std::int32_t steps,
                   double tolerance) {
  Walker walker(line, run);
  PlanePoint from = line.points[run.first];
  std::size_t next = run.first + 1;
  for (std::int32_t step = 1; step <= steps; ++step) {
    const PlanePoint to = walker.step(step, steps);
    for (; next <= walker.index(); ++next) {
      if (distanceToChord(line.points[next], from, to) > tolerance) {
        return false;
      }
    }
    from = to;
  }
  return true;
}

std::int32_t neededSteps(const FineLine& line, const FineLine::Run& run, double tolerance) {
  std::int32_t steps = 1;
  if (!run.straight) {
    while (steps < kMaxPathPoints && !isCloseEnough(line, run, steps, tolerance)) {
      steps += std::max(1, steps / 8);
    }
  }
  return steps;
}

/// Gives the steps away one by one, each where steps are longest.
void shareSteps(FineLine& line, std::int32_t steps) {
  const auto stepLength = [&line](const FineLine::Run& run) {
    return (line.along[run.last] - line.along[run.first]) / run.steps;
  };
  for (auto left = steps - static_cast<std::int32_t>(line.runs.size()); left > 0; --left) {
    ++std::max_element(line.runs.begin(), line.runs.end(), [&](const auto& a, const auto& b) {
        return stepLength(a) < stepLength(b);
      })->steps;
  }
}

/// Decides how many steps each run gets; true when the corners had to go.
bool planSteps(FineLine& line, bool curved, std::optional<std::int32_t> points, double tolerance) {
  const std::int32_t most = points.value_or(kMaxPathPoints) - 1;
  if (line.runs.size() > static_cast<std::size_t>(most)) {
    line.runs = {{0, line.points.size() - 1, false, most}};
    return true;
  }
  if (!curved) {
    return false;
  }
  std::int32_t needed = most;
  if (!points) {
    needed = 0;
    for (FineLine::Run& run : line.runs) {
      run.steps = neededSteps(line, run, tolerance);
      needed += run.steps;
    }
  }
  if (points || needed > most) {
    for (FineLine::Run& run : line.runs) {
      run.steps = 1;
    }
    shareSteps(line, most);
  }
  return false;
}

PathRecord sampled(const FineLine& line, const Box& box) {
  const PlanePoint centre = (box.low + box.high) * 0.5;
  const double scale = 2.0 / box.extent();
  PathRecord path;
  const auto add = [&](PlanePoint p) {
    // Differences the right way round leave no minus zeros.
    path.points[static_cast<std::size_t>(path.count++)] = {
        static_cast<float>((p.x - centre.x) * scale), static_cast<float>((centre.y - p.y) * scale),
        0.0F};
  };
  add(line.points.front());
  for (const FineLine::Run& run : line.runs) {
    Walker walker(line, run);
    for (std::int32_t step = 1; step <= run.steps; ++step) {
      add(walker.step(step, run.steps));
    }
  }
  return path;
}

}  // namespace

Result<FittedPath> fitOutline(const Outline& outline, std::optional<std::int32_t> points) {
  const bool curved = std::any_of(outline.pieces.begin(), outline.pieces.end(),
                                  [](const OutlinePiece& piece) { return !piece.straight; });
  FineLine line = Flattener(outline, 0.0).take();
  const Box box = boxOf(line.points);
  if (!(box.extent() > kLeastExtent)) {
    return Error{ErrorKind::BadData, {}, {}, "the line has no extent"};
  }
  if (curved) {
    line = Flattener(outline, kNoLength * box.extent()).take();
  }
  FittedPath fitted;
  fitted.cornersLost = planSteps(line, curved, points, kTolerance * box.extent() / 2);
  fitted.path = sampled(line, box);
  return fitted;
}

}  // namespace pv
