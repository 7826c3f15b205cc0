#include "util/files_platform.h"
#include "util/folders.h"

namespace pv {

namespace fs = std::filesystem;

namespace {

EntryKind kindOf(const fs::file_status& state) {
  if (!fs::exists(state)) {
    return EntryKind::Missing;
  }
  return fs::is_directory(state) ? EntryKind::Folder : EntryKind::File;
}

}  // namespace

EntryKind entryKind(const fs::path& path) {
  std::error_code error;
  return kindOf(fs::status(path, error));
}

EntryKind namedEntryKind(const fs::path& path) {
  std::error_code error;
  return kindOf(fs::symlink_status(path, error));
}

std::error_code listFolder(const fs::path& folder, std::vector<FolderEntry>& entries) {
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  while (!error && entry != fs::directory_iterator()) {
    std::error_code unknown;  // what cannot be looked at is listed
    entries.push_back({entry->path().filename().string(), entry->is_directory(unknown)});
    entry.increment(error);
  }
  return error;
}

std::error_code fileSize(const fs::path& file, std::uint64_t& size) {
  std::error_code error;
  size = fs::file_size(file, error);
  return error;
}

std::error_code createFolder(const fs::path& folder) {
  std::error_code error;
  if (!fs::create_directory(folder, error) && !error) {
    error = std::make_error_code(std::errc::file_exists);
  }
  return error;
}

std::error_code createFolders(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  return error;
}

std::error_code removeEntry(const fs::path& path) {
  std::error_code error;
  if (!fs::remove(path, error) && !error) {
    error = std::make_error_code(std::errc::no_such_file_or_directory);
  }
  return error;
}

std::error_code renameEntry(const fs::path& from, const fs::path& to) {
  std::error_code error;
  fs::rename(from, to, error);
  return error;
}

fs::path absolutePath(const fs::path& path) {
  std::error_code error;
  auto whole = fs::absolute(path, error);
  return error ? path : whole;
}

fs::path finalPath(const fs::path& path) {
  std::error_code error;
  auto whole = fs::canonical(path, error);
  return error ? fs::path() : whole;
}

bool isSameEntry(const fs::path& a, const fs::path& b) {
  std::error_code error;
  return fs::equivalent(a, b, error) && !error;
}

std::string reasonOf(const std::error_code& error) {
  return error.category() == std::system_category() ? platform::systemMessage(error.value())
                                                    : error.message();
}

}  // namespace pv
