#pragma once

#include <cstddef>
#include <string>

#include "cli/cli_run.h"

namespace pv {

/// A line that is drawn over again while a command works; nothing where the
/// messages do not go to a terminal. Goes away with its object.
class ProgressBar {
 public:
  ProgressBar(CliRun& run, std::size_t total);
  ~ProgressBar() { clear(); }
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;
  ProgressBar(ProgressBar&&) = delete;
  ProgressBar& operator=(ProgressBar&&) = delete;

  /// One of the total is done.
  void advance();
  /// Makes room for a message.
  void clear();

 private:
  void show(std::string line);

  CliRun& run_;
  std::size_t total_;
  std::size_t done_ = 0;
  std::string shown_;
};

}  // namespace pv
