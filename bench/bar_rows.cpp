#include "bar_rows.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <utility>
#include <vector>

#include "opponents.h"
#include "ours.h"
#include "reference/comparison.h"
#include "round_robin.h"

namespace pv::bench {

namespace {

constexpr FrameSize kSmall = kFrameSizes.front();
constexpr FrameSize kLarge = kFrameSizes.back();

constexpr std::array kRows{
    BarRow{Work::Draw, "S1/neutral", kSmall, {.painter = 30}},
    BarRow{Work::Draw, "S2/neutral", kSmall, {.painter = 150, .agg = 8}},
    BarRow{Work::Draw, "S3/neutral", kSmall, {.painter = 150, .agg = 8}},
    BarRow{Work::Draw, "S3/neutral", kLarge, {.painter = 120, .agg = 7}},
    BarRow{Work::Frame, "S1/neutral", kSmall, {.plain = 7}},
    BarRow{Work::Frame, "S2/neutral", kSmall, {.plain = 35}},
    BarRow{Work::Frame, "S2/all", kSmall, {.plain = 15}},
    BarRow{Work::Frame, "S3/neutral", kSmall, {.plain = 70}},
    BarRow{Work::Frame, "S3/all", kSmall, {.plain = 45}},
    BarRow{Work::Frame, "S3/all-globally", kSmall, {.plain = 18}},
    BarRow{Work::DrawDirections, "S3/neutral", kSmall, {.plain = 27}},
    BarRow{Work::SkipDirections, "S3/neutral", kSmall, {.milliseconds = 0.02}},
};

// Ours first.
using Runs = std::vector<std::pair<BarTime BarTimes::*, std::function<void()>>>;

BarTimes timed(const Runs& runs) {
  std::vector<Contender> contenders;
  for (const auto& [column, run] : runs) {
    contenders.push_back({run, {}, {}});
  }
  takeTurns(contenders);
  BarTimes times;
  for (std::size_t i = 0; i < runs.size(); ++i) {
    times.*runs[i].first = {median(contenders[i].milliseconds),
                            timesAsLong(contenders[i], contenders.front())};
  }
  return times;
}

std::ptrdiff_t litPixels(const Job& job) {
  return std::ranges::count_if(job.pixels(),
                               [](std::uint32_t word) { return (word & 0xFFFFFFU) != 0; });
}

// Other painters choose other pixels now and then, but hardly more or fewer.
std::string strangeness(const char* name, const Job& job, const Job& plain) {
  const std::ptrdiff_t lit = litPixels(job);
  const std::ptrdiff_t wanted = litPixels(plain);
  if (std::abs(lit - wanted) * 100 <= wanted) {
    return {};
  }
  return std::string(name) + " lights " + std::to_string(lit) + " pixels instead of " +
         std::to_string(wanted);
}

BarTimes measureDrawing(const BarRow& row) {
  const ShapeRecord shape = makeShape(row.scene);
  const PlainMesh mesh = plainMesh(shape);
  const Job ours = ourDrawing(shape, row.size);
  const Job plain = plainDrawing(mesh, row.size);
  Runs runs{{&BarTimes::ours, ours.run}, {&BarTimes::plain, plain.run}};
  std::vector<std::pair<const char*, Job>> others;
#ifdef PV_BENCH_PAINTER
  others.emplace_back("the painter", painterDrawing(mesh, row.size));
  runs.emplace_back(&BarTimes::painter, others.back().second.run);
#endif
#ifdef PV_BENCH_AGG
  others.emplace_back("AGG", aggDrawing(mesh, row.size));
  runs.emplace_back(&BarTimes::agg, others.back().second.run);
#endif
  BarTimes times = timed(runs);
  times.difference = reference::firstDifference(ours.pixels(), plain.pixels(), row.size.width);
  for (const auto& [name, job] : others) {
    if (times.difference.empty()) {
      times.difference = strangeness(name, job, plain);
    }
  }
  return times;
}

// The pictures of a fresh view are compared, where the random directions of both
// sides stand at the same place.
BarTimes measureFrame(const BarRow& row) {
  const ShapeRecord shape = makeShape(row.scene);
  BarTimes times = timed({{&BarTimes::ours, ourFrame(shape, row.size).run},
                          {&BarTimes::plain, plainFrame(shape, row.size).run}});
  const Job fresh = ourFrame(shape, row.size);
  fresh.run();
  times.difference =
      reference::firstDifference(fresh.pixels(), plainFirstFrame(shape, row.size), row.size.width);
  return times;
}

std::string directionDifference(std::size_t count) {
  OurDirections ours(count);
  OurDirections skipped(count);
  std::vector<reference::Vertex> plain(count);
  reference::Random random;
  VectorStreams drawn;
  ours.store(drawn);
  reference::drawDirections(plain, random);
  for (std::size_t i = 0; i < count; ++i) {
    if (drawn.at(i) != plain[i].disperse) {
      return "direction " + std::to_string(i) + " is another one";
    }
  }
  return skipped.skip() == random.next() ? "" : "the sequence goes on elsewhere";
}

BarTimes measureDirections(const BarRow& row) {
  std::vector<reference::Vertex> vertices = plainMesh(makeShape(row.scene))->vertices;
  OurDirections ours(vertices.size());
  BarTimes times = row.work == Work::SkipDirections
                       ? timed({{&BarTimes::ours, [&] { static_cast<void>(ours.skip()); }}})
                       : timed({{&BarTimes::ours, [&] { ours.draw(); }},
                                {&BarTimes::plain, [&] { plainDirections(vertices); }}});
  times.difference = directionDifference(vertices.size());
  return times;
}

}  // namespace

std::span<const BarRow> barRows() {
  return kRows;
}

std::string describe(const BarRow& row) {
  constexpr std::array kNames{"draw", "frame", "directions drawn", "directions skipped"};
  const std::string name = kNames.at(static_cast<std::size_t>(row.work));
  const std::string scene(row.scene);
  if (row.work == Work::Draw || row.work == Work::Frame) {
    return name + " " + scene + " " + row.size.name();
  }
  return name + " " + scene.substr(0, scene.find('/'));
}

std::string describe(const Bars& bars) {
  char text[32];
  std::string all;
  const auto add = [&](const char* format, double value) {
    if (value > 0.0) {
      std::snprintf(text, sizeof text, format, value);
      all += (all.empty() ? "" : ", ") + std::string(text);
    }
  };
  add("%g x plain", bars.plain);
  add("%g x painter", bars.painter);
  add("%g x AGG", bars.agg);
  add("below %g ms", bars.milliseconds);
  return all;
}

BarTimes measure(const BarRow& row) {
  switch (row.work) {
    case Work::Draw:
      return measureDrawing(row);
    case Work::Frame:
      return measureFrame(row);
    default:
      return measureDirections(row);
  }
}

bool isMet(const Bars& bars, const BarTimes& times) {
  const auto beats = [](double bar, const BarTime& other) {
    return bar == 0.0 || other.milliseconds == 0.0 || other.timesOurs >= bar;
  };
  return beats(bars.plain, times.plain) && beats(bars.painter, times.painter) &&
         beats(bars.agg, times.agg) &&
         (bars.milliseconds == 0.0 || times.ours.milliseconds < bars.milliseconds);
}

}  // namespace pv::bench
