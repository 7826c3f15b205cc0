#include "cli/progress_bar.h"

#include <ostream>
#include <utility>

namespace pv {

ProgressBar::ProgressBar(CliRun& run, std::size_t total) : run_(run), total_(total) {}

void ProgressBar::advance() {
  constexpr std::size_t kCells = 40;
  constexpr std::size_t kPercent = 100;
  if (!run_.errIsTerminal || total_ == 0) {
    return;
  }
  ++done_;
  const std::size_t full = done_ * kCells / total_;
  show('[' + std::string(full, '#') + std::string(kCells - full, '.') + "] " +
       std::to_string(done_ * kPercent / total_) + "% of " + std::to_string(total_));
}

void ProgressBar::clear() {
  if (!shown_.empty()) {
    run_.err << '\r' << std::string(shown_.size(), ' ') << '\r' << std::flush;
    shown_.clear();
  }
}

void ProgressBar::show(std::string line) {
  // The text only ever grows, so that it covers the one before.
  if (line != shown_) {
    run_.err << '\r' << line << std::flush;
    shown_ = std::move(line);
  }
}

}  // namespace pv
