#include "util/disk_object.h"

#include <algorithm>
#include <filesystem>
#include <iterator>

#include "util/ascii.h"
#include "util/files.h"
#include "util/files_platform.h"
#include "util/folders.h"
#include "util/program_path.h"
#include "util/utf8_path.h"

namespace pv {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kAllFiles = "*.*";
constexpr std::string_view kNetworkStart = "\\\\";

/// The byte after the UTF-8 character that begins at `index`.
std::size_t nextCharacter(std::string_view text, std::size_t index) {
  do {
    ++index;
  } while (index < text.size() && (static_cast<unsigned char>(text[index]) & 0xC0U) == 0x80U);
  return index;
}

/// Backslashes throughout, and the current folder in front where one is due.
std::string absoluteText(std::string_view path) {
  std::string text = withBackslashes(path);
  if (text.starts_with(kNetworkStart) || isAbsoluteProgramPath(text)) {
    return text;
  }
  return programPath(absolutePath(pathFromUtf8(text)));
}

struct Found {
  bool anything = false;  ///< a folder counts, and so do the folder and its parent
  std::vector<std::string> files;
};

std::error_code search(std::string_view folder, std::string_view pattern, Found& found) {
  found.anything = matchesPattern(".", pattern) || matchesPattern("..", pattern);
  std::vector<FolderEntry> entries;
  auto error = listFolder(hostPath(folder), entries);
  for (auto& entry : entries) {
    if (matchesPattern(entry.name, pattern) && !isTemporaryFileName(entry.name)) {
      found.anything = true;
      if (!entry.isFolder) {
        found.files.push_back(std::move(entry.name));
      }
    }
  }
  if (!error && !found.anything) {
    error = std::make_error_code(std::errc::no_such_file_or_directory);
  }
  return error;
}

/// Puts each entry before the first greater one.
void insertEach(std::vector<std::string> entries, std::vector<std::string>& list) {
  if (std::is_sorted(list.begin(), list.end())) {
    list.insert(list.end(), std::make_move_iterator(entries.begin()),
                std::make_move_iterator(entries.end()));
    std::sort(list.begin(), list.end());
    return;
  }
  for (auto& entry : entries) {
    const auto greater = std::find_if(list.begin(), list.end(),
                                      [&entry](const auto& other) { return other > entry; });
    list.insert(greater, std::move(entry));
  }
}

}  // namespace

bool matchesPattern(std::string_view name, std::string_view pattern) {
  if (pattern == kAllFiles) {
    return true;
  }
  // On a mismatch the last star takes one more character; earlier stars never
  // need to, so the work stays within name times pattern.
  std::size_t n = 0;
  std::size_t p = 0;
  std::size_t star = std::string_view::npos;
  std::size_t starEnd = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      starEnd = n;
    } else if (p < pattern.size() && pattern[p] == '?') {
      n = nextCharacter(name, n);
      ++p;
    } else if (p < pattern.size() && asciiLower(pattern[p]) == asciiLower(name[n])) {
      ++n;
      ++p;
    } else if (star != std::string_view::npos) {
      n = ++starEnd;
      p = star + 1;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

bool CDiskObject::listFiles(std::string_view folder, std::vector<std::string>& list,
                            ListMode mode) {
  return listFilesMatching(kAllFiles, folder, list, mode);
}

bool CDiskObject::listAllFiles(std::string_view folder, std::vector<std::string>& list) {
  return listFilesMatching(kAllFiles, folder, list, ListMode::Names);
}

bool CDiskObject::listFilesMatching(std::string_view pattern, std::string_view folder,
                                    std::vector<std::string>& list, ListMode mode) {
  errorText_.clear();
  std::string qualified(folder);
  qualifyFolder(qualified);
  if (!usable(qualified)) {
    return false;
  }
  Found found;
  if (const auto error = search(qualified, pattern, found)) {
    return fail(error, qualified + std::string(pattern));
  }
  for (auto& name : found.files) {
    if (mode == ListMode::FullPaths) {
      name.insert(0, qualified);
    }
    show(name);
  }
  insertEach(std::move(found.files), list);
  return true;
}

std::string CDiskObject::fileNameOf(std::string_view path) {
  const std::string whole = absoluteText(path);
  return whole.substr(whole.rfind('\\') + 1);  // npos + 1 is the beginning
}

std::string CDiskObject::directoryOf(std::string_view path) {
  const std::string whole = absoluteText(path);
  const auto last = whole.rfind('\\');
  return last == std::string::npos ? std::string() : whole.substr(0, last);
}

void CDiskObject::qualifyFolder(std::string& folder) {
  folder = withBackslashes(folder);
  if (!folder.ends_with('\\')) {
    folder += '\\';
  }
  folder = absoluteText(folder);
}

bool CDiskObject::createDirectory(std::string_view path) {
  return usable(path) && succeeded(createFolder(hostPath(path)), path);
}

bool CDiskObject::removeDirectory(std::string_view path) {
  if (!usable(path)) {
    return false;
  }
  const fs::path host = hostPath(path);
  if (namedEntryKind(host) == EntryKind::File) {
    return fail(std::make_error_code(std::errc::not_a_directory), path);
  }
  return succeeded(removeEntry(host), path);
}

bool CDiskObject::removeFile(std::string_view path) {
  if (!usable(path)) {
    return false;
  }
  const fs::path host = hostPath(path);
  if (namedEntryKind(host) == EntryKind::Folder) {
    return fail(std::make_error_code(std::errc::is_a_directory), path);
  }
  return succeeded(removeEntry(host), path);
}

bool CDiskObject::createFile(std::string_view path) {
  if (!usable(path)) {
    return false;
  }
  const fs::path host = hostPath(path);
  if (auto failure = platform::createFilled(host, host, {})) {
    return fail(failure->reason + " " + std::string(path));
  }
  return true;
}

std::optional<FileInformation> CDiskObject::fileInformation(std::string_view path) {
  if (!usable(path)) {
    return std::nullopt;
  }
  const fs::path host = hostPath(path);
  FileInformation information;
  information.isFolder = isFolder(host);
  if (!information.isFolder && !succeeded(fileSize(host, information.size), path)) {
    return std::nullopt;
  }
  return information;
}

bool CDiskObject::fail(std::string text) {
  errorText_ = std::move(text);
  show(errorText_);
  return false;
}

bool CDiskObject::fail(std::error_code error, std::string_view path) {
  return fail(reasonOf(error) + " " + std::string(path));
}

bool CDiskObject::succeeded(std::error_code error, std::string_view path) {
  return !error || fail(error, path);
}

/// The system would cut a path with a zero byte short and act on another file.
bool CDiskObject::usable(std::string_view path) {
  const bool whole = !path.empty() && path.find('\0') == std::string_view::npos;
  return whole || fail("CDiskObject internal error");
}

void CDiskObject::show(std::string_view text) const {
  if (feedback_) {
    feedback_(text);
  }
}

}  // namespace pv
