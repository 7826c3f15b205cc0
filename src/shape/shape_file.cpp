#include "shape/shape_file.h"

#include <string>

#include "util/files.h"
#include "util/little_endian.h"
#include "util/utf8_path.h"

namespace pv {

namespace {

// Enumerations travel as the number they are, also when it names nothing.
template <class Enum>
void transferEnum(FieldReader& fields, Enum& value) {
  std::int32_t number = 0;
  fields.field(number);
  value = static_cast<Enum>(number);
}
template <class Enum>
void transferEnum(FieldWriter& fields, const Enum& value) {
  fields.field(static_cast<std::int32_t>(value));
}

template <class Fields, class Array>
void transferAll(Fields& fields, Array& values) {
  for (auto& value : values) {
    fields.field(value);
  }
}

template <class Fields, class Settings>
void transferDuplicates(Fields& fields, Settings& settings) {
  fields.field(settings.reserved0);
  transferAll(fields, settings.position);
  transferAll(fields, settings.rotation);
  transferAll(fields, settings.scale);
  transferAll(fields, settings.bulge);
  transferAll(fields, settings.reserved);
}

template <class Fields, class Settings>
void transferEmitter(Fields& fields, Settings& settings) {
  transferEnum(fields, settings.kind);
  fields.field(settings.pathPointCount);
  fields.field(settings.horizontalAmount);
  fields.field(settings.horizontalSize);
  fields.field(settings.horizontalEnd);
  fields.field(settings.horizontalCentre.slot);
  fields.field(settings.verticalAmount);
  fields.field(settings.verticalSize);
  fields.field(settings.verticalCentre.slot);
  fields.field(settings.copies);
  fields.field(settings.reserved1);
  fields.field(settings.reserved2);
  fields.field(settings.selectedAxis);
}

// Everything behind the version word, in file order. Fields is a FieldReader
// with a ShapeRecord, or a FieldWriter with a const one.
template <class Fields, class Record>
void transferShape(Fields& fields, Record& shape) {
  fields.field(shape.applyModifiersGlobally);
  fields.field(shape.useWorldAxis);
  transferDuplicates(fields, shape.duplicates);
  transferEmitter(fields, shape.emitter);
  transferPathRecord(fields, shape.path);
  for (auto& triple : shape.modifiers.triples) {
    fields.field(triple.x);
    fields.field(triple.y);
    fields.field(triple.z);
  }
  transferEnum(fields, shape.mapping);
}

}  // namespace

std::vector<std::byte> encodeShapeFile(const ShapeRecord& shape) {
  FieldWriter fields;
  fields.field(kShapeFileVersion);
  transferShape(fields, shape);
  return fields.bytes();
}

Result<ShapeRecord> decodeShapeFile(std::span<const std::byte> bytes) {
  FieldReader fields(bytes);
  std::uint16_t version = 0;
  fields.field(version);
  if (bytes.size() < 2 || version != kShapeFileVersion) {
    return Error{ErrorKind::BadData, "", 0, "not a shape file (its version word is not 4934)"};
  }
  if (bytes.size() < kShapeFileBytes) {
    return Error{ErrorKind::BadData, "", bytes.size(),
                 "the file ends early; a shape file has 6494 bytes"};
  }
  ShapeRecord shape;
  transferShape(fields, shape);
  if (shape.path.count < 0 || shape.path.count > kMaxPathPoints) {
    return Error{ErrorKind::BadData, "", kShapePathOffset,
                 "the path count " + std::to_string(shape.path.count) + " is outside 0 to 512"};
  }
  return shape;
}

Result<ShapeRecord> LoadShapeFile(const std::filesystem::path& file) {
  auto bytes = readFile(file, kShapeFileBytes);
  if (!bytes) {
    return bytes.error();
  }
  auto shape = decodeShapeFile(bytes.value());
  if (!shape) {
    Error error = shape.error();
    error.file = utf8FromPath(file);
    return error;
  }
  return shape;
}

Status SaveShapeFile(const std::filesystem::path& name, const ShapeRecord& shape) {
  std::filesystem::path file = name;
  file += ".j3d";
  return writeFile(file, encodeShapeFile(shape));
}

}  // namespace pv
