#include <cstdlib>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "util/user_folders.h"

namespace pv {
namespace {

constexpr const char* kOwnName = "particle-vortex";

/// A relative folder would change its meaning with the current one.
std::filesystem::path environmentFolder(const char* name) {
  const char* value = std::getenv(name);
  std::filesystem::path folder(value != nullptr ? value : "");
  return folder.is_absolute() ? folder : std::filesystem::path();
}

/// Whoever else could write there could put a lock in this user's way.
bool makePrivate(const std::filesystem::path& folder) {
  struct stat state = {};
  static_cast<void>(::mkdir(folder.c_str(), S_IRWXU));
  return ::lstat(folder.c_str(), &state) == 0 && S_ISDIR(state.st_mode) &&
         state.st_uid == ::geteuid() && (state.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

}  // namespace

std::filesystem::path userConfigFolder() {
  auto folder = environmentFolder("XDG_CONFIG_HOME");
  if (folder.empty()) {
    const auto home = environmentFolder("HOME");
    folder = home.empty() ? home : home / ".config";
  }
  return folder.empty() ? folder : folder / kOwnName;
}

std::filesystem::path userRuntimeFolder() {
  const auto session = environmentFolder("XDG_RUNTIME_DIR");
  if (!session.empty() && makePrivate(session / kOwnName)) {
    return session / kOwnName;
  }
  std::error_code error;
  const auto temporary = std::filesystem::temp_directory_path(error);
  const auto folder = temporary / (std::string(kOwnName) + "-" + std::to_string(::geteuid()));
  return temporary.is_absolute() && makePrivate(folder) ? folder : std::filesystem::path();
}

}  // namespace pv
