#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace pv {

// The file system apart from the contents of files (files.h), for paths of any
// length. Nothing here throws. The standard's own calls would do on most systems, but
// not all of their Windows forms know long paths, lone surrogates or locked files.

enum class EntryKind : std::uint8_t {
  Missing,  ///< or not to be looked at
  File,     ///< whatever is no folder
  Folder,
};
/// What stands under the name, links followed.
[[nodiscard]] EntryKind entryKind(const std::filesystem::path& path);
[[nodiscard]] inline bool isFolder(const std::filesystem::path& path) {
  return entryKind(path) == EntryKind::Folder;
}
/// What bears the name itself: links, wherever they lead, are files.
[[nodiscard]] EntryKind namedEntryKind(const std::filesystem::path& path);
[[nodiscard]] inline bool isNameTaken(const std::filesystem::path& path) {
  return namedEntryKind(path) != EntryKind::Missing;
}

struct FolderEntry {
  std::string name;  ///< UTF-8
  bool isFolder = false;
};
/// Appends what stands in the folder, in the system's order, without the folder
/// itself and its parent. After an error it may be a part.
[[nodiscard]] std::error_code listFolder(const std::filesystem::path& folder,
                                         std::vector<FolderEntry>& entries);

/// Bytes of a file.
[[nodiscard]] std::error_code fileSize(const std::filesystem::path& file, std::uint64_t& size);

/// One level; what exists already is an error.
[[nodiscard]] std::error_code createFolder(const std::filesystem::path& folder);
/// Every level that is missing.
[[nodiscard]] std::error_code createFolders(const std::filesystem::path& folder);
/// A file, a link or an empty folder.
[[nodiscard]] std::error_code removeEntry(const std::filesystem::path& path);
/// Within one volume. Whether a file of the new name is replaced depends on the system.
[[nodiscard]] std::error_code renameEntry(const std::filesystem::path& from,
                                          const std::filesystem::path& to);

/// From the current folder where it is relative; as it is when the system refuses.
[[nodiscard]] std::filesystem::path absolutePath(const std::filesystem::path& path);
/// Absolute, without links; empty when there is no such thing.
[[nodiscard]] std::filesystem::path finalPath(const std::filesystem::path& path);
/// True when both names lead to one file or folder.
[[nodiscard]] bool isSameEntry(const std::filesystem::path& a, const std::filesystem::path& b);

/// The system's text, trimmed, without a full stop.
[[nodiscard]] std::string reasonOf(const std::error_code& error);

}  // namespace pv
