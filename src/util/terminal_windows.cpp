#include <cstdio>
#include <io.h>

#include "util/terminal.h"

namespace pv {

bool errorGoesToTerminal() {
  return ::_isatty(::_fileno(stderr)) != 0;
}

}  // namespace pv
