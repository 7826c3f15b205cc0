#include "util/program_arguments.h"

namespace pv {

std::vector<std::string> programArguments(int argc, const char* const* argv) {
  return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

}  // namespace pv
