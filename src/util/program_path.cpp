#include "util/program_path.h"

#include <algorithm>
#include <optional>
#include <system_error>

#include "util/ascii.h"
#include "util/utf8_path.h"

namespace pv {
namespace {

constexpr char kSeparator = '\\';

#ifndef _WIN32

bool isThere(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::exists(std::filesystem::symlink_status(path, error));
}

/// The entry of a folder whose name differs in ASCII case at most; when several
/// do, the first in byte order.
std::optional<std::string> findIgnoringCase(const std::filesystem::path& folder,
                                            std::string_view name) {
  std::optional<std::string> found;
  std::error_code error;
  std::filesystem::directory_iterator entry(folder.empty() ? "." : folder, error);
  while (!error && entry != std::filesystem::directory_iterator()) {
    const std::string candidate = entry->path().filename().string();
    if (equalIgnoringCase(candidate, name) && (!found || candidate < *found)) {
      found = candidate;
    }
    entry.increment(error);
  }
  return found;
}

#endif

}  // namespace

std::string withBackslashes(std::string_view path) {
  std::string text(path);
  std::replace(text.begin(), text.end(), '/', kSeparator);
  return text;
}

std::string programPath(const std::filesystem::path& path) {
  return withBackslashes(utf8FromPath(path));
}

#ifdef _WIN32

bool isAbsoluteProgramPath(std::string_view programPath) {
  return pathFromUtf8(programPath).is_absolute();
}

std::filesystem::path hostPath(std::string_view programPath) {
  const std::string text = withBackslashes(programPath);
  const bool network = text.starts_with("\\\\");
  std::string collapsed = network ? "\\" : "";
  for (const char c : text) {
    if (c != kSeparator || collapsed.size() <= (network ? 1U : 0U) ||
        collapsed.back() != kSeparator) {
      collapsed += c;
    }
  }
  std::filesystem::path path = pathFromUtf8(collapsed);
  return path.has_filename() || path == path.root_path() ? path : path.parent_path();
}

#else

bool isAbsoluteProgramPath(std::string_view programPath) {
  return programPath.starts_with(kSeparator);
}

std::filesystem::path hostPath(std::string_view programPath) {
  const std::string text = withBackslashes(programPath);
  std::filesystem::path path = isAbsoluteProgramPath(text) ? "/" : "";
  bool lookUp = true;  // below a missing folder there is nothing to look up
  std::size_t begin = 0;
  while (begin < text.size()) {
    const std::size_t end = std::min(text.find(kSeparator, begin), text.size());
    const std::string name = text.substr(begin, end - begin);
    begin = end + 1;
    if (name.empty()) {
      continue;
    }
    if (lookUp && !isThere(path / name)) {
      const auto found = findIgnoringCase(path, name);
      lookUp = found.has_value();
      path /= found.value_or(name);
    } else {
      path /= name;
    }
  }
  return path;
}

#endif

}  // namespace pv
