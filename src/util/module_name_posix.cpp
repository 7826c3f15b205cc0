#include <filesystem>
#include <system_error>

#include "util/module_name.h"
#include "util/program_path.h"

#ifdef __APPLE__
#include <cstdint>
#include <mach-o/dyld.h>
#endif

namespace pv {
namespace {

/// Empty when the system does not tell.
std::filesystem::path programFile() {
  std::error_code error;
#ifdef __APPLE__
  std::uint32_t size = 0;
  _NSGetExecutablePath(nullptr, &size);
  std::string buffer(size, '\0');
  if (_NSGetExecutablePath(buffer.data(), &size) != 0) {
    return {};
  }
  return std::filesystem::canonical(buffer.c_str(), error);
#else
  return std::filesystem::read_symlink("/proc/self/exe", error);
#endif
}

}  // namespace

std::optional<std::string> moduleName() {
  const std::string name = programPath(programFile());
  return name.empty() ? std::nullopt : std::optional(name + ".exe");
}

}  // namespace pv
