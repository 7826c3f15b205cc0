#include <iostream>
#include <string>
#include <vector>

#include "cli/run_cli.h"
#include "util/terminal.h"

#ifdef _WIN32
#include "util/utf8_path.h"

#ifdef __MINGW32__
// Shells leave names with stars to the programs; the runtime expands them at this word.
extern "C" {
int _dowildcard = -1;
}
#endif
#endif

namespace {

int run(const std::vector<std::string>& args) {
  const pv::CommandLineSession session;
  return pv::runCli(args, std::cout, std::cerr, pv::errorGoesToTerminal());
}

}  // namespace

#ifdef _WIN32
// The narrow arguments are in the code page of the day; these are not.
int wmain(int argc, wchar_t** argv) {
  std::vector<std::string> args;
  for (int i = 1; i < argc; ++i) {
    args.push_back(pv::utf8FromPath(argv[i]));
  }
  return run(args);
}
#else
int main(int argc, char** argv) {
  return run({argv + (argc > 0 ? 1 : 0), argv + argc});
}
#endif
