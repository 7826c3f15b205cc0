#include <iostream>
#include <string>
#include <vector>

#include "cli/run_cli.h"
#include "util/terminal.h"

#ifdef _WIN32
#include <filesystem>

// The narrow arguments are in the code page of the day; these are not.
int wmain(int argc, wchar_t** argv) {
  std::vector<std::string> args;
  for (int i = 1; i < argc; ++i) {
    const std::u8string text = std::filesystem::path(argv[i]).u8string();
    args.emplace_back(text.begin(), text.end());
  }
  return pv::runCli(args, std::cout, std::cerr, pv::errorGoesToTerminal());
}
#else
#include <csignal>

int main(int argc, char** argv) {
  // A file above the user's size limit is then a failed write, reported and
  // cleaned up, instead of the end of the program.
  std::signal(SIGXFSZ, SIG_IGN);
  const std::vector<std::string> args(argv + (argc > 0 ? 1 : 0), argv + argc);
  return pv::runCli(args, std::cout, std::cerr, pv::errorGoesToTerminal());
}
#endif
