#include "util/files.h"

#include <charconv>
#include <chrono>
#include <string_view>
#include <utility>

#include "util/files_platform.h"
#include "util/utf8_path.h"

namespace pv {
namespace {

constexpr std::string_view kTemporaryPrefix = ".pv-";
constexpr std::string_view kTemporarySuffix = ".tmp";
constexpr int kMaxTemporaryNames = 16;

Error fault(const std::filesystem::path& file, ErrorKind kind, std::string reason) {
  return {kind, utf8FromPath(file), std::nullopt, std::move(reason)};
}

Error fault(const std::filesystem::path& file, platform::Failure failure) {
  return fault(file, failure.kind, std::move(failure.reason));
}

/// The system would cut such a name short and open another file.
bool holdsZero(const std::filesystem::path& file) {
  return file.native().find(std::filesystem::path::value_type{}) !=
         std::filesystem::path::string_type::npos;
}

/// Short, so that it fits wherever the target's own name does. The clock moves
/// on between two tries.
std::filesystem::path temporaryBeside(const std::filesystem::path& target) {
  const auto ticks = std::chrono::system_clock::now().time_since_epoch().count();
  std::string name(kTemporaryPrefix);
  for (const std::uint64_t part : {platform::processId(), static_cast<std::uint64_t>(ticks)}) {
    char digits[16] = {};
    const auto end = std::to_chars(digits, digits + sizeof digits, part, 16).ptr;
    name.append(digits, end);
    name += '-';
  }
  name.pop_back();
  name += kTemporarySuffix;
  return target.parent_path() / name;
}

platform::Outcome replaceWhole(const std::filesystem::path& target,
                               std::span<const std::byte> bytes) {
  for (int i = 0; i < kMaxTemporaryNames; ++i) {
    const auto temporary = temporaryBeside(target);
    auto failure = platform::createFilled(temporary, target, bytes);
    if (!failure) {
      return platform::moveOver(temporary, target);
    }
    if (!failure->nameTaken) {
      return failure;
    }
  }
  return platform::Failure{ErrorKind::CannotCreate, "no free name for a temporary file"};
}

}  // namespace

bool isTemporaryFileName(std::string_view name) {
  return name.size() > kTemporaryPrefix.size() + kTemporarySuffix.size() &&
         name.starts_with(kTemporaryPrefix) && name.ends_with(kTemporarySuffix);
}

Result<std::vector<std::byte>> readFile(const std::filesystem::path& file, std::size_t limit) {
  if (file.empty() || holdsZero(file)) {
    return fault(file, ErrorKind::NoInput, "this is not a file name");
  }
  std::vector<std::byte> bytes;
  if (auto failure = platform::readRegularFile(file, limit, bytes)) {
    return fault(file, std::move(*failure));
  }
  return bytes;
}

Status writeFile(const std::filesystem::path& file, std::span<const std::byte> bytes) {
  if (!file.has_filename() || holdsZero(file)) {
    return fault(file, ErrorKind::CannotCreate, "this is not a file name");
  }
  auto kind = platform::TargetKind::Missing;
  if (auto failure = platform::inspectTarget(file, kind)) {
    return fault(file, std::move(*failure));
  }
  if (kind == platform::TargetKind::Folder) {
    return fault(file, ErrorKind::CannotCreate, "this is a folder");
  }
  if (kind == platform::TargetKind::Protected) {
    return fault(file, ErrorKind::CannotCreate, "the file is read-only");
  }
  const auto target = platform::followLinks(file);
  const bool straight = kind == platform::TargetKind::Special || platform::isDescriptorName(target);
  auto failure = straight ? platform::writeStraight(file, bytes) : replaceWhole(target, bytes);
  if (failure) {
    return fault(file, std::move(*failure));
  }
  return Done{};
}

}  // namespace pv
