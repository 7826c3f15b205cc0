#include "summary.h"

#include <cstdio>

#include "scenes.h"

namespace pv::bench {

namespace {

std::string cell(std::optional<double> value, const char* unit) {
  char text[32];
  if (!value) {
    return "-";
  }
  std::snprintf(text, sizeof text, "%.2f%s", *value, unit);
  return text;
}

std::optional<double> ratio(std::optional<double> a, std::optional<double> b) {
  return a && b && *b > 0.0 ? std::optional(*a / *b) : std::nullopt;
}

}  // namespace

// Medians of repeated benchmarks, with their spread; single runs as they are.
void SummaryReporter::ReportRuns(const std::vector<Run>& runs) {
  std::vector<Run> shown;
  for (const Run& run : runs) {
    const bool median = run.aggregate_name == "median";
    if (!run.error_occurred && (median || run.run_type == Run::RT_Iteration)) {
      milliseconds_[run.run_name.function_name] = run.GetAdjustedCPUTime();
    }
    if (run.run_type == Run::RT_Iteration || median || run.aggregate_name == "cv") {
      shown.push_back(run);
    }
  }
  ConsoleReporter::ReportRuns(shown);
}

std::optional<double> SummaryReporter::median(const std::string& benchmark) const {
  const auto found = milliseconds_.find(benchmark);
  return found == milliseconds_.end() ? std::nullopt : std::optional(found->second);
}

void SummaryReporter::printSummary() const {
  std::printf(
      "\nMedian processor times in ms; x: how many times as fast as the painter's drawing\n");
  std::printf("%-28s %9s %9s %9s %9s %8s %8s %8s\n", "scene", "painter", "draw", "frame", "still",
              "draw x", "frame x", "still x");
  for (const Scene& scene : allScenes()) {
    for (const FrameSize size : kFrameSizes) {
      const std::string place = scene.name + "/" + size.name();
      const auto painter = median("qpainter/" + place);
      const auto draw = median("draw/" + place);
      const auto frame = median("frame/" + place);
      const auto still = median("still-frame/" + place);
      if (!draw && !frame) {
        continue;
      }
      std::printf("%-28s %9s %9s %9s %9s %8s %8s %8s\n", place.c_str(), cell(painter, "").c_str(),
                  cell(draw, "").c_str(), cell(frame, "").c_str(), cell(still, "").c_str(),
                  cell(ratio(painter, draw), "").c_str(), cell(ratio(painter, frame), "").c_str(),
                  cell(ratio(painter, still), "").c_str());
    }
  }
}

}  // namespace pv::bench
