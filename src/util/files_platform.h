#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "util/result.h"

/// The calls of the operating system behind files.h; one source file a system.
/// Only util/ includes this.
namespace pv::platform {

struct Failure {
  ErrorKind kind = ErrorKind::InputOutput;
  std::string reason;
  bool nameTaken = false;  ///< the temporary file's name is in use
};

/// Nothing when the call went well.
using Outcome = std::optional<Failure>;

enum class TargetKind : std::uint8_t {
  Missing,
  Regular,
  Protected,  ///< a regular file that may not be written
  Folder,
  Special,  ///< a device, a pipe or a name for an open descriptor
};

/// The system's text for one of its error codes, trimmed, without a full stop.
[[nodiscard]] std::string systemMessage(int code);

/// Distinguishes the temporary files of programs that run side by side.
[[nodiscard]] std::uint64_t processId();

[[nodiscard]] Outcome readRegularFile(const std::filesystem::path& file, std::size_t limit,
                                      std::vector<std::byte>& bytes);

/// What stands under the name, links followed.
[[nodiscard]] Outcome inspectTarget(const std::filesystem::path& file, TargetKind& kind);

/// Where the last link of a chain points to, whether that exists or not; the file
/// itself where it is none.
[[nodiscard]] std::filesystem::path followLinks(const std::filesystem::path& file);

/// True for names such as /dev/fd/1 that stand for an open descriptor and must
/// not be followed to the file behind it.
[[nodiscard]] bool isDescriptorName(const std::filesystem::path& file);

/// Creates `file`, which must not exist, with the permissions of `like` where
/// that exists, writes the bytes and flushes them to disk. Leaves no file
/// behind on failure.
[[nodiscard]] Outcome createFilled(const std::filesystem::path& temporary,
                                   const std::filesystem::path& target,
                                   std::span<const std::byte> bytes);

/// Renames over the target, at once for every other reader.
[[nodiscard]] Outcome moveOver(const std::filesystem::path& temporary,
                               const std::filesystem::path& target);

/// Appends to an existing device, pipe or descriptor name.
[[nodiscard]] Outcome writeStraight(const std::filesystem::path& file,
                                    std::span<const std::byte> bytes);

}  // namespace pv::platform
