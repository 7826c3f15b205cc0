#include "util/module_name.h"
#include "util/program_path.h"
#include "util/windows_calls.h"

namespace pv {

std::optional<std::string> moduleName() {
  constexpr std::size_t kLongestPath = 32768;
  std::wstring name(MAX_PATH, L'\0');
  while (true) {
    const DWORD used = ::GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    if (used == 0 || name.size() > kLongestPath) {
      return std::nullopt;
    }
    if (used < name.size()) {
      name.resize(used);
      return programPath(std::filesystem::path(name));
    }
    name.resize(2 * name.size());  // it was cut off
  }
}

}  // namespace pv
