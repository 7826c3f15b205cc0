#include <cstdio>
#include <io.h>

#include "util/parent_console.h"
#include "util/windows_calls.h"

namespace pv {
namespace {

bool leadsNowhere(std::FILE* stream) {
  return ::_fileno(stream) < 0 || ::_get_osfhandle(::_fileno(stream)) < 0;
}

}  // namespace

ParentConsole::ParentConsole() {
  const bool output = leadsNowhere(stdout);
  const bool error = leadsNowhere(stderr);
  if ((!output && !error) || ::AttachConsole(ATTACH_PARENT_PROCESS) == 0) {
    return;
  }
  formerCodePage_ = ::GetConsoleOutputCP();
  ::SetConsoleOutputCP(CP_UTF8);
  if (output) {
    static_cast<void>(std::freopen("CONOUT$", "w", stdout));
  }
  if (error) {
    static_cast<void>(std::freopen("CONOUT$", "w", stderr));
  }
}

ParentConsole::~ParentConsole() {
  if (formerCodePage_ != 0) {
    std::fflush(stdout);
    std::fflush(stderr);
    ::SetConsoleOutputCP(formerCodePage_);
    ::FreeConsole();
  }
}

}  // namespace pv
