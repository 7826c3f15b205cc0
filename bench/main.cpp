// Times the stages of a frame, or prints one of the reports. See README.md.

#include <array>
#include <benchmark/benchmark.h>
#include <string>
#include <string_view>
#include <vector>

#include "reports.h"
#include "stages.h"
#include "summary.h"

namespace {

struct Report {
  std::string_view option;
  int (*print)();
};
constexpr std::array kReports{
    Report{"--bar", pv::bench::printBar},
    Report{"--growth", pv::bench::printGrowth},
    Report{"--machine", pv::bench::printMachine},
    Report{"--peak-memory", pv::bench::printPeakMemory},
};

int runStages(int argc, char** argv) {
  // Defaults stand before the caller's own flags, which therefore win.
  std::array<std::string, 3> defaults{"--benchmark_repetitions=5", "--benchmark_min_time=0.1",
                                      "--benchmark_report_aggregates_only=true"};
  std::vector<char*> arguments{argv[0]};
  for (std::string& flag : defaults) {
    arguments.push_back(flag.data());
  }
  arguments.insert(arguments.end(), argv + 1, argv + argc);
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
    return 64;
  }

  pv::bench::registerMeshStages();
  pv::bench::registerDrawingStages();
  pv::bench::registerLibraryStages();
#ifdef PV_BENCH_PAINTER
  pv::bench::registerPainter();
#endif
  pv::bench::SummaryReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.printSummary();
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  for (const Report& report : kReports) {
    if (argc == 2 && argv[1] == report.option) {
      return report.print();
    }
  }
  return runStages(argc, argv);
}
