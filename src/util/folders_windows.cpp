#include "util/files_platform.h"
#include "util/folders.h"
#include "util/utf8_path.h"
#include "util/windows_calls.h"

namespace pv {
namespace {

namespace fs = std::filesystem;
using platform::systemPath;

std::error_code failureOf(DWORD code) {
  return {static_cast<int>(code), std::system_category()};
}

std::error_code unless(bool done) {
  return done ? std::error_code() : failureOf(::GetLastError());
}

bool isFolderAttribute(DWORD attributes) {
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool isMissing(DWORD code) {
  return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND ||
         code == ERROR_INVALID_DRIVE || code == ERROR_BAD_NETPATH || code == ERROR_BAD_NET_NAME ||
         code == ERROR_INVALID_NAME;
}

}  // namespace

EntryKind entryKind(const fs::path& path) {
  const std::wstring name = systemPath(path);
  const DWORD attributes = ::GetFileAttributesW(name.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    return EntryKind::Missing;
  }
  if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
      !platform::Handle(platform::openForAttributes(name)).open()) {
    return EntryKind::Missing;  // a link that leads nowhere
  }
  return isFolderAttribute(attributes) ? EntryKind::Folder : EntryKind::File;
}

// Links to folders are made, listed and removed as folders here.
EntryKind namedEntryKind(const fs::path& path) {
  const DWORD attributes = ::GetFileAttributesW(systemPath(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    return isMissing(::GetLastError()) ? EntryKind::Missing : EntryKind::File;
  }
  return isFolderAttribute(attributes) ? EntryKind::Folder : EntryKind::File;
}

std::error_code listFolder(const fs::path& folder, std::vector<FolderEntry>& entries) {
  std::wstring pattern = systemPath(folder.empty() ? fs::path(L".") : folder);
  pattern += pattern.ends_with(L'\\') ? L"*" : L"\\*";
  WIN32_FIND_DATAW found = {};
  const HANDLE search = ::FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &found,
                                           FindExSearchNameMatch, nullptr, 0);
  if (search == INVALID_HANDLE_VALUE) {
    const DWORD code = ::GetLastError();
    return code == ERROR_FILE_NOT_FOUND ? std::error_code() : failureOf(code);  // an empty drive
  }
  do {
    const std::wstring_view name = found.cFileName;
    if (name != L"." && name != L"..") {
      entries.push_back({utf8FromPath(name), isFolderAttribute(found.dwFileAttributes)});
    }
  } while (::FindNextFileW(search, &found) != 0);
  const DWORD code = ::GetLastError();
  ::FindClose(search);
  return code == ERROR_NO_MORE_FILES ? std::error_code() : failureOf(code);
}

std::error_code fileSize(const fs::path& file, std::uint64_t& size) {
  WIN32_FILE_ATTRIBUTE_DATA data = {};
  const bool known =
      ::GetFileAttributesExW(systemPath(file).c_str(), GetFileExInfoStandard, &data) != 0;
  size = (std::uint64_t{data.nFileSizeHigh} << 32U) | data.nFileSizeLow;
  return unless(known);
}

std::error_code createFolder(const fs::path& folder) {
  return unless(::CreateDirectoryW(systemPath(folder).c_str(), nullptr) != 0);
}

std::error_code createFolders(const fs::path& folder) {
  const fs::path whole = absolutePath(folder);
  const fs::path parent = whole.parent_path();
  if (isFolder(whole)) {
    return {};
  }
  if (parent != whole && !isFolder(parent)) {
    if (const auto error = createFolders(parent)) {
      return error;
    }
  }
  return createFolder(whole);
}

std::error_code removeEntry(const fs::path& path) {
  const std::wstring name = systemPath(path);
  const DWORD attributes = ::GetFileAttributesW(name.c_str());
  const bool folder = attributes != INVALID_FILE_ATTRIBUTES && isFolderAttribute(attributes);
  return unless(platform::patiently([&] {
    return (folder ? ::RemoveDirectoryW(name.c_str()) : ::DeleteFileW(name.c_str())) != 0;
  }));
}

std::error_code renameEntry(const fs::path& from, const fs::path& to) {
  const std::wstring before = systemPath(from);
  const std::wstring after = systemPath(to);
  return unless(platform::patiently(
      [&] { return ::MoveFileExW(before.c_str(), after.c_str(), MOVEFILE_WRITE_THROUGH) != 0; }));
}

fs::path absolutePath(const fs::path& path) {
  const std::wstring name = systemPath(path);
  return name.empty() ? path : platform::plainPath(name);
}

fs::path finalPath(const fs::path& path) {
  const platform::Handle opened(platform::openForAttributes(systemPath(path)));
  if (!opened.open()) {
    return {};
  }
  std::wstring name(MAX_PATH, L'\0');
  DWORD used = 0;
  while ((used = ::GetFinalPathNameByHandleW(opened.get(), name.data(),
                                             static_cast<DWORD>(name.size()), 0)) > name.size()) {
    name.resize(used);
  }
  name.resize(used);
  return name.empty() ? absolutePath(path) : platform::plainPath(name);  // not every drive tells
}

bool isSameEntry(const fs::path& a, const fs::path& b) {
  const platform::Handle first(platform::openForAttributes(systemPath(a)));
  const platform::Handle second(platform::openForAttributes(systemPath(b)));
  BY_HANDLE_FILE_INFORMATION one = {};
  BY_HANDLE_FILE_INFORMATION two = {};
  return first.open() && second.open() && ::GetFileInformationByHandle(first.get(), &one) != 0 &&
         ::GetFileInformationByHandle(second.get(), &two) != 0 &&
         one.dwVolumeSerialNumber == two.dwVolumeSerialNumber &&
         one.nFileIndexHigh == two.nFileIndexHigh && one.nFileIndexLow == two.nFileIndexLow;
}

std::string reasonOf(const std::error_code& error) {
  return error.category() == std::system_category() ? platform::systemMessage(error.value())
                                                    : error.message();
}

}  // namespace pv
