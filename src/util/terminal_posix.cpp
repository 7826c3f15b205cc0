#include <csignal>
#include <unistd.h>

#include "util/terminal.h"

namespace pv {

bool errorGoesToTerminal() {
  return ::isatty(STDERR_FILENO) == 1;
}

// A file above the user's size limit is then a failed write.
CommandLineSession::CommandLineSession() {
  std::signal(SIGXFSZ, SIG_IGN);
}

CommandLineSession::~CommandLineSession() = default;

}  // namespace pv
