#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <algorithm>
#include <iterator>
#include <string_view>
#include <windows.h>

#include "util/files_platform.h"

namespace pv::platform {
namespace {

constexpr std::size_t kReadStep = std::size_t{1} << 16;
constexpr std::size_t kLargestWrite = std::size_t{1} << 30;

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

Failure failed(ErrorKind kind, const char* what, DWORD code) {
  return {kind, std::string(what) + ": " + systemMessage(static_cast<int>(code))};
}

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

HANDLE openFile(const std::filesystem::path& file, DWORD access, DWORD share, DWORD disposition,
                DWORD flags) {
  return ::CreateFileW(file.c_str(), access, share, nullptr, disposition, flags, nullptr);
}

bool isFolder(DWORD attributes) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool isMissing(DWORD code) {
  return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND;
}

Outcome writeAll(HANDLE file, std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto size = static_cast<DWORD>(std::min(bytes.size(), kLargestWrite));
    if (::WriteFile(file, bytes.data(), size, &written, nullptr) == 0) {
      return failed(ErrorKind::InputOutput, "writing failed", ::GetLastError());
    }
    if (written == 0) {
      return failed(ErrorKind::InputOutput, "writing failed", ERROR_WRITE_FAULT);
    }
    bytes = bytes.subspan(written);
  }
  return std::nullopt;
}

Outcome fill(Handle& file, std::span<const std::byte> bytes) {
  if (auto failure = writeAll(file.get(), bytes)) {
    return failure;
  }
  if (::FlushFileBuffers(file.get()) == 0 || !file.close()) {
    return failed(ErrorKind::InputOutput, "writing failed", ::GetLastError());
  }
  return std::nullopt;
}

std::string utf8(std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  const int size =
      ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<std::size_t>(std::max(size, 0)), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(), size, nullptr, nullptr);
  return result;
}

}  // namespace

std::string systemMessage(int code) {
  wchar_t text[512] = {};
  const DWORD length = ::FormatMessageW(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
      nullptr, static_cast<DWORD>(code), MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL), text,
      static_cast<DWORD>(std::size(text)), nullptr);
  const std::wstring_view all(text, length);
  const auto last = all.find_last_not_of(L". \r\n");
  if (last == std::wstring_view::npos) {
    return "system error " + std::to_string(code);
  }
  return utf8(all.substr(0, last + 1));
}

std::uint64_t processId() {
  return ::GetCurrentProcessId();
}

Outcome readRegularFile(const std::filesystem::path& file, std::size_t limit,
                        std::vector<std::byte>& bytes) {
  if (isFolder(::GetFileAttributesW(file.c_str()))) {
    return Failure{ErrorKind::NoInput, "this is a folder"};
  }
  const Handle opened(openFile(file, GENERIC_READ, kShareAll, OPEN_EXISTING,
                               FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN));
  if (!opened.open()) {
    return failed(ErrorKind::NoInput, "cannot be opened", ::GetLastError());
  }
  if (::GetFileType(opened.get()) != FILE_TYPE_DISK) {
    return Failure{ErrorKind::NoInput, "this is not a regular file"};
  }
  while (bytes.size() < limit) {
    const auto used = bytes.size();
    bytes.resize(used + std::min(limit - used, kReadStep));
    DWORD got = 0;
    const bool read = ::ReadFile(opened.get(), bytes.data() + used,
                                 static_cast<DWORD>(bytes.size() - used), &got, nullptr) != 0;
    const DWORD code = ::GetLastError();
    bytes.resize(used + (read ? got : 0));
    if (!read) {
      return failed(ErrorKind::InputOutput, "reading failed", code);
    }
    if (got == 0) {
      break;
    }
  }
  return std::nullopt;
}

Outcome inspectTarget(const std::filesystem::path& file, TargetKind& kind) {
  // Asking for attributes only neither disturbs other users nor needs rights to
  // the contents; the flag admits folders. The handle follows links.
  const Handle opened(
      openFile(file, FILE_READ_ATTRIBUTES, kShareAll, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS));
  if (!opened.open()) {
    const DWORD code = ::GetLastError();
    kind = TargetKind::Missing;
    if (isMissing(code)) {
      return std::nullopt;
    }
    return failed(ErrorKind::CannotCreate, "cannot be written", code);
  }
  BY_HANDLE_FILE_INFORMATION information = {};
  if (::GetFileType(opened.get()) != FILE_TYPE_DISK) {
    kind = TargetKind::Special;
  } else if (::GetFileInformationByHandle(opened.get(), &information) == 0) {
    return failed(ErrorKind::CannotCreate, "cannot be written", ::GetLastError());
  } else if (isFolder(information.dwFileAttributes)) {
    kind = TargetKind::Folder;
  } else {
    const bool readOnly = (information.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
    kind = readOnly ? TargetKind::Protected : TargetKind::Regular;
  }
  return std::nullopt;
}

bool isDescriptorName(const std::filesystem::path& /*file*/) {
  return false;  // this system has no such names
}

Outcome createFilled(const std::filesystem::path& temporary,
                     const std::filesystem::path& /*target*/, std::span<const std::byte> bytes) {
  Handle file(openFile(temporary, GENERIC_WRITE, 0, CREATE_NEW, FILE_ATTRIBUTE_NORMAL));
  if (!file.open()) {
    const DWORD code = ::GetLastError();
    auto failure = failed(ErrorKind::CannotCreate, "cannot be created", code);
    failure.nameTaken = code == ERROR_FILE_EXISTS || code == ERROR_ALREADY_EXISTS;
    return failure;
  }
  auto failure = fill(file, bytes);
  if (failure) {
    static_cast<void>(file.close());  // an open file could not be deleted
    ::DeleteFileW(temporary.c_str());
  }
  return failure;
}

Outcome moveOver(const std::filesystem::path& temporary, const std::filesystem::path& target) {
  if (::MoveFileExW(temporary.c_str(), target.c_str(),
                    MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0) {
    const DWORD code = ::GetLastError();
    ::DeleteFileW(temporary.c_str());
    return failed(ErrorKind::CannotCreate, "cannot be replaced", code);
  }
  return std::nullopt;
}

Outcome writeStraight(const std::filesystem::path& file, std::span<const std::byte> bytes) {
  const Handle opened(
      openFile(file, GENERIC_WRITE, kShareAll, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL));
  if (!opened.open()) {
    return failed(ErrorKind::CannotCreate, "cannot be opened for writing", ::GetLastError());
  }
  return writeAll(opened.get(), bytes);
}

}  // namespace pv::platform
