#include <unistd.h>

#include "util/terminal.h"

namespace pv {

bool errorGoesToTerminal() {
  return ::isatty(STDERR_FILENO) == 1;
}

}  // namespace pv
