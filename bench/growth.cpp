// How the cost of a sphere grows with its sections, its copies and the pixels.

#include <algorithm>
#include <cstdio>
#include <string>

#include "ours.h"
#include "path/path_record.h"
#include "reports.h"
#include "round_robin.h"

namespace pv::bench {

namespace {

constexpr FrameSize kSmall = kFrameSizes.front();

ShapeRecord sphere(std::int32_t sections, std::int32_t copies) {
  ShapeRecord shape = makeShape(copies == 0 ? "S2/neutral" : "S3/neutral");
  shape.emitter.horizontalAmount = sections;
  shape.emitter.verticalAmount = sections;
  shape.emitter.copies = copies;
  return shape;
}

// An arc has 512 points at most.
double vertices(const ShapeRecord& shape) {
  const std::int32_t arc = std::min(shape.emitter.horizontalAmount + 1, kMaxPathPoints);
  return static_cast<double>(arc) * (shape.emitter.verticalAmount + 1) * (shape.emitter.copies + 1);
}

/// A table whose costs are also told for each of some units.
void printHeader(const char* what, const char* unit) {
  std::printf("\n%-12s %10s %10s %10s   ns a %s: %6s %6s\n", what, "vertices", "draw ms",
              "frame ms", unit, "draw", "frame");
}

struct Costs {
  double draw;   ///< ms
  double frame;  ///< ms
};
Costs measure(const ShapeRecord& shape, FrameSize size) {
  std::vector<Contender> contenders{Contender(ourDrawing(shape, size).run),
                                    Contender(ourFrame(shape, size).run)};
  takeTurns(contenders);
  return {median(contenders[0].timings.milliseconds), median(contenders[1].timings.milliseconds)};
}

void printLine(const std::string& name, const ShapeRecord& shape, FrameSize size, double units) {
  const auto [draw, frame] = measure(shape, size);
  std::printf("%-12s %10.0f %10.4f %10.4f   %20.2f %6.2f\n", name.c_str(), vertices(shape), draw,
              frame, draw * 1e6 / units, frame * 1e6 / units);
  std::fflush(stdout);
}

}  // namespace

int printGrowth() {
  std::printf("Medians of wall times; neutral modifiers, 640x480 where nothing else is said\n");
  printHeader("sections", "vertex");
  for (const std::int32_t sections : {50, 100, 200, 400, 800}) {
    const std::string side = std::to_string(sections);
    const ShapeRecord shape = sphere(sections, 0);
    printLine(side + "x" + side, shape, kSmall, vertices(shape));
  }
  printHeader("copies", "vertex");
  for (const std::int32_t copies : {0, 5, 10, 20}) {
    const ShapeRecord shape = sphere(400, copies);
    printLine(std::to_string(copies), shape, kSmall, vertices(shape));
  }
  for (const std::int32_t copies : {0, 20}) {
    printHeader(copies == 0 ? "pixels, S2" : "pixels, S3", "pixel ");
    for (const FrameSize size : {FrameSize{320, 240}, kSmall, FrameSize{1280, 720},
                                 FrameSize{1920, 1080}, FrameSize{3840, 2160}}) {
      printLine(size.name(), sphere(400, copies), size,
                static_cast<double>(size.width) * size.height);
    }
  }
  return 0;
}

}  // namespace pv::bench
