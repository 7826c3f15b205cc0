#include "cli/documents.h"

#include <cstdint>
#include <utility>
#include <vector>

#include "path/path_file.h"
#include "shape/shape_file.h"
#include "util/ascii.h"
#include "util/files.h"
#include "util/little_endian.h"
#include "util/utf8_path.h"

namespace pv {

namespace {

template <class T>
Result<T> named(Result<T> result, const std::string& name) {
  if (result) {
    return result;
  }
  Error error = result.error();
  error.file = name;
  return error;
}

template <class Record>
Result<LoadedDocument> loaded(const Result<Record>& record, std::size_t used, std::size_t size) {
  if (!record) {
    return record.error();
  }
  return LoadedDocument{record.value(), used, size > used};
}

Result<LoadedDocument> decodeDocument(std::span<const std::byte> bytes) {
  FieldReader fields(bytes);
  std::uint16_t version = 0;
  fields.field(version);
  if (bytes.size() < sizeof(version)) {
    return Error{ErrorKind::BadData, {}, bytes.size(), "the file ends before its version word"};
  }
  if (version == kShapeFileVersion) {
    return loaded(decodeShapeFile(bytes), kShapeFileBytes, bytes.size());
  }
  if (version == kPathFileVersion) {
    return loaded(decodePathFile(bytes), kPathFileBytes, bytes.size());
  }
  return Error{ErrorKind::BadData,
               {},
               0,
               "the version word " + std::to_string(version) +
                   " is neither a shape's (4934) nor a path's (4916)"};
}

}  // namespace

Result<LoadedDocument> loadDocument(const std::string& name) {
  // One byte more than the longest file, to see whether there is more.
  static_assert(kPathFileBytes < kShapeFileBytes);
  const auto bytes = readFile(pathFromUtf8(name), kShapeFileBytes + 1);
  return named(bytes ? decodeDocument(bytes.value()) : bytes.error(), name);
}

Result<ShapeRecord> loadShape(const std::string& name) {
  return named(LoadShapeFile(pathFromUtf8(name)), name);
}

Result<PathRecord> loadPath(const std::string& name) {
  return named(LoadPathFile(pathFromUtf8(name)), name);
}

Status saveFile(const std::string& name, std::span<const std::byte> bytes) {
  return named(writeFile(pathFromUtf8(name), bytes), name);
}

bool checkOutputName(const std::string& name, std::string_view suffix, CliRun& run) {
  if (endsIgnoringCase(name, suffix)) {
    return true;
  }
  run.fail(ExitStatus::Usage, name + ": the output's name must end in " + std::string(suffix));
  return false;
}

}  // namespace pv
