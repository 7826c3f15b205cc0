#define NOMINMAX
#include <memory>
#include <windows.h>

#include "util/program_arguments.h"
#include "util/utf8_path.h"

namespace pv {

// The narrow arguments have lost what the code page of the day cannot say.
std::vector<std::string> programArguments(int /*argc*/, const char* const* /*argv*/) {
  struct Free {
    void operator()(LPWSTR* list) const { ::LocalFree(list); }
  };
  int count = 0;
  const std::unique_ptr<LPWSTR, Free> list(::CommandLineToArgvW(::GetCommandLineW(), &count));
  std::vector<std::string> arguments;
  for (int i = 1; list != nullptr && i < count; ++i) {
    arguments.push_back(utf8FromPath(list.get()[i]));
  }
  return arguments;
}

}  // namespace pv
