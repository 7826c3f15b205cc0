#pragma once

// What the Windows files of this folder share; only they include it.

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <filesystem>
#include <string>
#include <string_view>
#include <windows.h>

namespace pv::platform {

/// The path as the system's calls take it at any length: whole, with "\\?\" in front,
/// or as it is where that is there already. Empty for the names of devices (con, nul,
/// com1 and so on, wherever the system sees one), which are never opened.
[[nodiscard]] std::wstring systemPath(const std::filesystem::path& path);

/// Without the "\\?\" that systemPath puts in front.
[[nodiscard]] std::filesystem::path plainPath(std::wstring_view systemPath);

/// Calls until it succeeds, for about half a second as long as somebody else holds the
/// file: virus scanners and media servers look at new files at once. The call returns
/// false after a failure; the last error is then its own.
template <class Call>
bool patiently(Call call) {
  constexpr DWORD kWaits[] = {20, 40, 80, 160, 200};  // milliseconds
  for (const DWORD wait : kWaits) {
    if (call()) {
      return true;
    }
    const DWORD code = ::GetLastError();
    if (code != ERROR_SHARING_VIOLATION && code != ERROR_LOCK_VIOLATION &&
        code != ERROR_ACCESS_DENIED) {
      return false;
    }
    ::Sleep(wait);
  }
  return call();
}

/// Closes on every way out.
class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  ~Handle() { static_cast<void>(close()); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  Handle(Handle&&) = delete;
  Handle& operator=(Handle&&) = delete;

  [[nodiscard]] bool open() const { return handle_ != INVALID_HANDLE_VALUE; }
  [[nodiscard]] HANDLE get() const { return handle_; }

  [[nodiscard]] bool close() {
    const HANDLE handle = handle_;
    handle_ = INVALID_HANDLE_VALUE;
    return handle == INVALID_HANDLE_VALUE || ::CloseHandle(handle) != 0;
  }

 private:
  HANDLE handle_;
};

inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// The file or folder for a look at what it is, which disturbs nobody and needs no
/// rights to its contents.
[[nodiscard]] inline HANDLE openForAttributes(const std::wstring& systemPath) {
  return ::CreateFileW(systemPath.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                       FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

}  // namespace pv::platform
