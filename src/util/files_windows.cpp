#include <algorithm>
#include <iterator>
#include <string_view>

#include "util/files_platform.h"
#include "util/folders.h"
#include "util/utf8_path.h"
#include "util/windows_calls.h"

namespace pv::platform {
namespace {

constexpr std::size_t kReadStep = std::size_t{1} << 16;
constexpr std::size_t kLargestWrite = std::size_t{1} << 30;

Failure failed(ErrorKind kind, const char* what, DWORD code) {
  return {kind, std::string(what) + ": " + systemMessage(static_cast<int>(code))};
}

/// Waits for programs that have the file for themselves.
HANDLE openFile(const std::wstring& name, DWORD access, DWORD share, DWORD disposition,
                DWORD flags) {
  HANDLE opened = INVALID_HANDLE_VALUE;
  static_cast<void>(patiently([&] {
    opened = ::CreateFileW(name.c_str(), access, share, nullptr, disposition, flags, nullptr);
    return opened != INVALID_HANDLE_VALUE;
  }));
  return opened;
}

constexpr const char* kDeviceName = "this is the name of a device";

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

/// What a new file takes over from the one that it replaces. The rights come from the
/// folder.
DWORD keptAttributes(const std::filesystem::path& target) {
  constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                          FILE_ATTRIBUTE_NOT_CONTENT_INDEXED | FILE_ATTRIBUTE_ENCRYPTED;
  const DWORD old = ::GetFileAttributesW(systemPath(target).c_str());
  const DWORD kept = old == INVALID_FILE_ATTRIBUTES ? 0 : old & kKept;
  return kept == 0 ? FILE_ATTRIBUTE_NORMAL : kept;
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
  return utf8FromPath(std::wstring(all.substr(0, last + 1)));
}

std::uint64_t processId() {
  return ::GetCurrentProcessId();
}

Outcome readRegularFile(const std::filesystem::path& file, std::size_t limit,
                        std::vector<std::byte>& bytes) {
  const std::wstring name = systemPath(file);
  if (name.empty()) {
    return Failure{ErrorKind::NoInput, kDeviceName};
  }
  if (isFolder(::GetFileAttributesW(name.c_str()))) {
    return Failure{ErrorKind::NoInput, "this is a folder"};
  }
  const Handle opened(openFile(name, GENERIC_READ, kShareAll, OPEN_EXISTING,
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
  const std::wstring name = systemPath(file);
  if (name.empty()) {
    return Failure{ErrorKind::CannotCreate, kDeviceName};
  }
  const Handle opened(openForAttributes(name));  // follows links
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

std::filesystem::path followLinks(const std::filesystem::path& file) {
  const DWORD attributes = ::GetFileAttributesW(systemPath(file).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
    return file;
  }
  const auto target = finalPath(file);
  return target.empty() ? file : target;
}

bool isDescriptorName(const std::filesystem::path& /*file*/) {
  return false;  // this system has no such names
}

Outcome createFilled(const std::filesystem::path& temporary, const std::filesystem::path& target,
                     std::span<const std::byte> bytes) {
  const std::wstring name = systemPath(temporary);
  Handle file(openFile(name, GENERIC_WRITE, 0, CREATE_NEW, keptAttributes(target)));
  if (!file.open()) {
    const DWORD code = ::GetLastError();
    auto failure = failed(ErrorKind::CannotCreate, "cannot be created", code);
    failure.nameTaken = code == ERROR_FILE_EXISTS || code == ERROR_ALREADY_EXISTS;
    return failure;
  }
  auto failure = fill(file, bytes);
  if (failure) {
    static_cast<void>(file.close());  // an open file could not be deleted
    static_cast<void>(patiently([&] { return ::DeleteFileW(name.c_str()) != 0; }));
  }
  return failure;
}

// Not the call that is made for replacing: that one moves the old file away first and can
// stop half way.
Outcome moveOver(const std::filesystem::path& temporary, const std::filesystem::path& target) {
  const std::wstring from = systemPath(temporary);
  const std::wstring to = systemPath(target);
  if (!patiently([&] {
        return ::MoveFileExW(from.c_str(), to.c_str(),
                             MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
      })) {
    const DWORD code = ::GetLastError();
    static_cast<void>(patiently([&] { return ::DeleteFileW(from.c_str()) != 0; }));
    return failed(ErrorKind::CannotCreate, "cannot be replaced", code);
  }
  return std::nullopt;
}

Outcome writeStraight(const std::filesystem::path& file, std::span<const std::byte> bytes) {
  const Handle opened(
      openFile(systemPath(file), GENERIC_WRITE, kShareAll, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL));
  if (!opened.open()) {
    return failed(ErrorKind::CannotCreate, "cannot be opened for writing", ::GetLastError());
  }
  return writeAll(opened.get(), bytes);
}

}  // namespace pv::platform
