// Our times beside those of plain code, the toolkit's painter and AGG.

#include <cstdio>
#include <vector>

#include "bar_rows.h"
#include "reports.h"

namespace pv::bench {

namespace {

std::string cell(double value, const char* format) {
  char text[32];
  if (value == 0.0) {
    return "-";
  }
  std::snprintf(text, sizeof text, format, value);
  return text;
}

std::string time(const BarTime& time) {
  return cell(time.milliseconds, time.milliseconds < 10.0 ? "%.4f" : "%.1f");
}

void printRow(const BarRow& row, const BarTimes& times, const char* verdict) {
  const auto ratio = [](const BarTime& other) { return cell(other.timesOurs, "%.1f"); };
  std::printf("%-30s %9s %9s %9s %9s %8s %9s %7s  %-24s %s\n", describe(row).c_str(),
              time(times.ours).c_str(), time(times.plain).c_str(), time(times.painter).c_str(),
              time(times.agg).c_str(), ratio(times.plain).c_str(), ratio(times.painter).c_str(),
              ratio(times.agg).c_str(), describe(row.bars).c_str(), verdict);
}

// Row by row, again and again: what the machine does for some seconds then hits some of
// each row instead of one row whole.
std::vector<BarTimings> measureAll() {
  constexpr int kPasses = 5;
  std::vector<BarTimings> timings(barRows().size());
  for (int pass = 1; pass <= kPasses; ++pass) {
    std::fprintf(stderr, "pass %d of %d\n", pass, kPasses);
    for (std::size_t i = 0; i < timings.size(); ++i) {
      measure(barRows()[i], timings[i]);
    }
  }
  return timings;
}

}  // namespace

int printBar() {
  const std::vector<BarTimings> timings = measureAll();
  std::printf("Medians of wall times in ms, and how many times as fast as the others we are\n");
  std::printf("%-30s %9s %9s %9s %9s %8s %9s %7s  %-24s\n", "", "ours", "plain", "painter", "AGG",
              "x plain", "x painter", "x AGG", "bar");
  bool allMet = true;
  for (std::size_t i = 0; i < timings.size(); ++i) {
    const BarRow& row = barRows()[i];
    const BarTimes times = summary(timings[i]);
    const bool differs = !timings[i].difference.empty();
    const bool met = !differs && isMet(row.bars, times);
    printRow(row, times, differs ? "DIFFERS" : (met ? "met" : "missed"));
    if (differs) {
      std::printf("  %s\n", timings[i].difference.c_str());
    }
    allMet = allMet && met;
  }
  return allMet ? 0 : 1;
}

}  // namespace pv::bench
