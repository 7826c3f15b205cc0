#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace pv {

/// True when a file name fits a pattern of '*' (any run of characters) and '?'
/// (one character), ASCII case ignored. "*.*" fits every name.
[[nodiscard]] bool matchesPattern(std::string_view name, std::string_view pattern);

/// What a listing puts into its list.
enum class ListMode : std::uint8_t {
  Names = 0,      ///< file names as found
  FullPaths = 1,  ///< qualified folder + file name
};

struct FileInformation {
  std::uint64_t size = 0;  ///< bytes; 0 for a folder
  bool isFolder = false;

  bool operator==(const FileInformation&) const = default;
};

/// Lists folders and splits paths, all as program paths. Nothing throws: every
/// operation says whether it went well and, when not, leaves a readable text
/// behind. Each user owns an instance.
class CDiskObject {
 public:
  using Feedback = std::function<void(std::string_view)>;

  /// Shown every error text and every entry as it is listed; may be empty.
  void setFeedback(Feedback feedback) { feedback_ = std::move(feedback); }

  /// The text of the last failure. A listing empties it when it starts.
  [[nodiscard]] const std::string& errorText() const { return errorText_; }

  /// Files of the folder, no subfolders, inserted into the sorted `list` before
  /// the first greater element (byte order). What the list held stays. Fails
  /// with the list unchanged when the folder is missing or nothing in it, not
  /// even a subfolder, fits the pattern.
  bool listFiles(std::string_view folder, std::vector<std::string>& list,
                 ListMode mode = ListMode::Names);
  bool listFilesMatching(std::string_view pattern, std::string_view folder,
                         std::vector<std::string>& list, ListMode mode = ListMode::Names);
  bool listAllFiles(std::string_view folder, std::vector<std::string>& list);

  /// The parts after and before the last backslash of the path made absolute.
  [[nodiscard]] static std::string fileNameOf(std::string_view path);
  [[nodiscard]] static std::string directoryOf(std::string_view path);

  /// Backslashes for slashes, one at the end, and absolute from the current
  /// folder, except for network paths, which begin with two backslashes. An
  /// empty folder becomes the root.
  static void qualifyFolder(std::string& folder);

  /// One level only; parents must exist.
  bool createDirectory(std::string_view path);
  /// Only an empty folder.
  bool removeDirectory(std::string_view path);
  bool removeFile(std::string_view path);
  /// An empty file; one that exists already is a failure and stays.
  bool createFile(std::string_view path);
  [[nodiscard]] std::optional<FileInformation> fileInformation(std::string_view path);

 private:
  bool fail(std::string text);
  bool fail(std::error_code error, std::string_view path);
  bool succeeded(std::error_code error, std::string_view path);
  [[nodiscard]] bool usable(std::string_view path);
  void show(std::string_view text) const;

  std::string errorText_;
  Feedback feedback_;
};

}  // namespace pv
