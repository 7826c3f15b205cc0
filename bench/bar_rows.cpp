#include "bar_rows.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <utility>
#include <vector>

#include "opponents.h"
#include "ours.h"
#include "reference/comparison.h"

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
using Runs = std::vector<std::pair<Timings BarTimings::*, std::function<void()>>>;

// Little at a time, since rows come again.
void addTurns(const Runs& runs, BarTimings& timings) {
  std::vector<Contender> contenders;
  for (const auto& [column, run] : runs) {
    contenders.emplace_back(run);
  }
  takeTurns(contenders, {.turns = 2, .milliseconds = 600.0});
  for (std::size_t i = 0; i < runs.size(); ++i) {
    (timings.*runs[i].first).add(contenders[i].timings);
  }
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

void measureDrawing(const BarRow& row, BarTimings& timings) {
  const ShapeRecord shape = makeShape(row.scene);
  const PlainMesh mesh = plainMesh(shape);
  const Job ours = ourDrawing(shape, row.size);
  const Job plain = plainDrawing(mesh, row.size);
  Runs runs{{&BarTimings::ours, ours.run}, {&BarTimings::plain, plain.run}};
  std::vector<std::pair<const char*, Job>> others;
#ifdef PV_BENCH_PAINTER
  others.emplace_back("the painter", painterDrawing(mesh, row.size));
  runs.emplace_back(&BarTimings::painter, others.back().second.run);
#endif
#ifdef PV_BENCH_AGG
  others.emplace_back("AGG", aggDrawing(mesh, row.size));
  runs.emplace_back(&BarTimings::agg, others.back().second.run);
#endif
  const bool isFirst = timings.ours.turns.empty();
  addTurns(runs, timings);
  if (!isFirst) {
    return;
  }
  timings.difference = reference::firstDifference(ours.pixels(), plain.pixels(), row.size.width);
  for (const auto& [name, job] : others) {
    if (timings.difference.empty()) {
      timings.difference = strangeness(name, job, plain);
    }
  }
}

// The pictures of a fresh view are compared, where the random directions of both
// sides stand at the same place.
void measureFrame(const BarRow& row, BarTimings& timings) {
  const ShapeRecord shape = makeShape(row.scene);
  const bool isFirst = timings.ours.turns.empty();
  addTurns({{&BarTimings::ours, ourFrame(shape, row.size).run},
            {&BarTimings::plain, plainFrame(shape, row.size).run}},
           timings);
  if (isFirst) {
    const Job fresh = ourFrame(shape, row.size);
    fresh.run();
    timings.difference = reference::firstDifference(
        fresh.pixels(), plainFirstFrame(shape, row.size), row.size.width);
  }
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

void measureDirections(const BarRow& row, BarTimings& timings) {
  std::vector<reference::Vertex> vertices = plainMesh(makeShape(row.scene))->vertices;
  OurDirections ours(vertices.size());
  if (timings.ours.turns.empty()) {
    timings.difference = directionDifference(vertices.size());
  }
  if (row.work == Work::SkipDirections) {
    addTurns({{&BarTimings::ours, [&] { static_cast<void>(ours.skip()); }}}, timings);
  } else {
    addTurns({{&BarTimings::ours, [&] { ours.draw(); }},
              {&BarTimings::plain, [&] { plainDirections(vertices); }}},
             timings);
  }
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

void measure(const BarRow& row, BarTimings& timings) {
  switch (row.work) {
    case Work::Draw:
      return measureDrawing(row, timings);
    case Work::Frame:
      return measureFrame(row, timings);
    default:
      return measureDirections(row, timings);
  }
}

BarTimes summary(const BarTimings& timings) {
  const auto time = [&](const Timings& column) {
    return BarTime{median(column.milliseconds), timesAsLong(column, timings.ours)};
  };
  return {time(timings.ours), time(timings.plain), time(timings.painter), time(timings.agg)};
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
