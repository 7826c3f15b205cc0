#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace pv::bench {

/// Prints as the console does and keeps the processor times, so that medians
/// can be set against one another at the end.
class SummaryReporter : public benchmark::ConsoleReporter {
 public:
  SummaryReporter() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override;

  /// Drawing and whole frames against the painter's drawing.
  void printSummary() const;

 private:
  [[nodiscard]] std::optional<double> median(const std::string& benchmark) const;

  std::map<std::string, double> milliseconds_;
};

}  // namespace pv::bench
