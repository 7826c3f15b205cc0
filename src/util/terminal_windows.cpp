#include <cstdio>
#include <fcntl.h>
#include <io.h>

#include "util/terminal.h"
#include "util/windows_calls.h"

namespace pv {
namespace {

bool isConsole(std::FILE* file) {
  return ::_isatty(::_fileno(file)) != 0;
}

}  // namespace

bool errorGoesToTerminal() {
  return isConsole(stderr);
}

CommandLineSession::CommandLineSession() {
  // No box that asks for the disk of an empty drive.
  ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
  for (std::FILE* file : {stdout, stderr}) {
    static_cast<void>(::_setmode(::_fileno(file), _O_BINARY));
  }
  if (isConsole(stdout) || isConsole(stderr)) {
    codePageBefore_ = ::GetConsoleOutputCP();
    ::SetConsoleOutputCP(CP_UTF8);
  }
}

CommandLineSession::~CommandLineSession() {
  if (codePageBefore_ != 0) {
    std::fflush(nullptr);
    ::SetConsoleOutputCP(codePageBefore_);
  }
}

}  // namespace pv
