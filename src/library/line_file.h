#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pv {

/// Larger files are refused, so that reading one can never hang.
inline constexpr std::size_t kMaxLineFileBytes = std::size_t{1} << 24;

enum class FileUse : std::uint8_t { Open, Save };

/// Text files with one entry a line. Lines are written with CR LF and read with
/// LF or CR LF; an entry's bytes are kept whatever their encoding. Paths are
/// program paths. Every operation says whether it went well and, when not,
/// leaves a readable text behind.
class CLineFile {
 public:
  CLineFile() = default;
  virtual ~CLineFile() = default;
  CLineFile(const CLineFile&) = default;
  CLineFile& operator=(const CLineFile&) = default;
  CLineFile(CLineFile&&) = default;
  CLineFile& operator=(CLineFile&&) = default;

  /// Empties the list, then appends every line. A last line needs no line end;
  /// nothing stands behind the last line end. On failure the list is empty.
  bool readLines(std::string_view path, std::vector<std::string>& lines);

  /// Replaces the file, whole or not at all. An entry that holds a line end
  /// itself will be read back as two.
  bool writeLines(std::string_view path, const std::vector<std::string>& lines);

  /// The same for one text as it is; each LF becomes CR LF.
  bool writeText(std::string_view path, std::string_view text);

  /// The last failure's message; empty before the first.
  [[nodiscard]] const std::string& errorText() const { return errorText_; }

  /// Written before and after each entry.
  void setLineStart(std::string_view text) { lineStart_ = text; }
  void setLineEnd(std::string_view text) { lineEnd_ = text; }

  /// Called for an operation that got an empty path. An empty answer, which is
  /// what this one gives, makes the operation fail.
  [[nodiscard]] virtual std::string askFileName(FileUse use, std::string_view nameSoFar);

 private:
  bool fail(std::string text);
  /// The path to use; empty when there is none.
  [[nodiscard]] std::string chosenPath(FileUse use, std::string_view path);

  std::string errorText_;
  std::string lineStart_;
  std::string lineEnd_ = "\n";
};

}  // namespace pv
