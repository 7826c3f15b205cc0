#include "path/path_file.h"

#include <string>

#include "util/files.h"
#include "util/little_endian.h"
#include "util/utf8_path.h"

namespace pv {
namespace {

constexpr std::size_t kCountOffset = 2;

}  // namespace

std::vector<std::byte> encodePathFile(const PathRecord& path) {
  FieldWriter fields;
  fields.field(kPathFileVersion);
  transferPathRecord(fields, path);
  return fields.bytes();
}

Result<PathRecord> decodePathFile(std::span<const std::byte> bytes) {
  FieldReader fields(bytes);
  std::uint16_t version = 0;
  fields.field(version);
  if (version != kPathFileVersion) {
    return Error{ErrorKind::BadData, "", 0, "not a path file (its version word is not 4916)"};
  }
  if (bytes.size() < kPathFileBytes) {
    return Error{ErrorKind::BadData, "", bytes.size(),
                 "the file ends early; a path file has 6150 bytes"};
  }
  PathRecord path;
  transferPathRecord(fields, path);
  if (path.count < 0 || path.count > kMaxPathPoints) {
    return Error{ErrorKind::BadData, "", kCountOffset,
                 "the path count " + std::to_string(path.count) + " is outside 0 to 512"};
  }
  return path;
}

Result<PathRecord> LoadPathFile(const std::filesystem::path& file) {
  const auto bytes = readFile(file, kPathFileBytes);
  if (!bytes) {
    return bytes.error();
  }
  auto path = decodePathFile(bytes.value());
  if (!path) {
    Error error = path.error();
    error.file = utf8FromPath(file);
    return error;
  }
  return path;
}

Status SavePathFile(const std::filesystem::path& name, const PathRecord& path) {
  std::filesystem::path file = name;
  file += ".j2d";
  return writeFile(file, encodePathFile(path));
}

}  // namespace pv
