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

void printHeader(const char* what) {
  std::printf("\n%-14s %12s %10s %10s %12s %12s\n", what, "vertices", "draw ms", "frame ms",
              "draw ns/vtx", "frame ns/vtx");
}

void printLine(const std::string& name, const ShapeRecord& shape, FrameSize size) {
  std::vector<Contender> contenders{{ourDrawing(shape, size).run, {}},
                                    {ourFrame(shape, size).run, {}}};
  takeTurns(contenders);
  const double draw = median(contenders[0].milliseconds);
  const double frame = median(contenders[1].milliseconds);
  const double count = vertices(shape);
  std::printf("%-14s %12.0f %10.4f %10.4f %12.2f %12.2f\n", name.c_str(), count, draw, frame,
              draw * 1e6 / count, frame * 1e6 / count);
  std::fflush(stdout);
}

}  // namespace

int printGrowth() {
  std::printf("Medians of wall times; neutral modifiers, 640x480 where nothing else is said\n");
  printHeader("sections");
  for (const std::int32_t sections : {50, 100, 200, 400, 800}) {
    const std::string side = std::to_string(sections);
    printLine(side + "x" + side, sphere(sections, 0), kSmall);
  }
  printHeader("copies");
  for (const std::int32_t copies : {0, 5, 10, 20}) {
    printLine(std::to_string(copies), sphere(400, copies), kSmall);
  }
  for (const std::int32_t copies : {0, 20}) {
    printHeader(copies == 0 ? "pixels, S2" : "pixels, S3");
    for (const FrameSize size : {FrameSize{320, 240}, kSmall, FrameSize{1280, 720},
                                 FrameSize{1920, 1080}, FrameSize{3840, 2160}}) {
      printLine(size.name(), sphere(400, copies), size);
    }
  }
  return 0;
}

}  // namespace pv::bench
