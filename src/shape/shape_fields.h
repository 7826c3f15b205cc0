#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "shape/shape_record.h"
#include "util/result.h"

namespace pv {

enum class FieldType : std::uint8_t {
  Integer,
  Float,
  Flag,      ///< 32-bit number, 0 or 1
  ByteFlag,  ///< truth value in the low byte of a 32-bit slot
  Name,      ///< one of ShapeField::names, stored as its place among them
  Word,      ///< kept as loaded, never read, not settable
};

/// Both ends belong to it.
struct FieldRange {
  double low = 0.0;
  double high = 0.0;

  [[nodiscard]] bool contains(double value) const { return value >= low && value <= high; }
  bool operator==(const FieldRange&) const = default;
};

/// One named 32-bit field of a shape, the path apart.
struct ShapeField {
  std::string key;  ///< as in "emitter.horizontalAmount"
  FieldType type = FieldType::Word;
  std::optional<FieldRange> range;          ///< what the designer offers; records hold more
  std::span<const std::string_view> names;  ///< for Name only
  std::size_t offset = 0;                   ///< byte in a shape file
  std::function<std::uint32_t(const ShapeRecord&)> load;  ///< as the bits of the file
  std::function<void(ShapeRecord&, std::uint32_t)> store;

  [[nodiscard]] bool isSettable() const { return type != FieldType::Word; }
};

/// Every field of a shape record except the path, in file order.
[[nodiscard]] std::span<const ShapeField> shapeFields();

/// ASCII case ignored; null when there is no such field.
[[nodiscard]] const ShapeField* findShapeField(std::string_view key);

/// What the designer offers for a shape of that kind; the same control means
/// lengths for some kinds and angles for others.
[[nodiscard]] std::optional<FieldRange> offeredRange(const ShapeField& field, EmitterKind kind);

/// The value as text that setField() reads back to the same bits, except for what
/// it refuses: numbers that name nothing, and floats that are not finite.
[[nodiscard]] std::string fieldText(const ShapeField& field, const ShapeRecord& shape);

/// The value as a number; names by their place.
[[nodiscard]] double fieldNumber(const ShapeField& field, const ShapeRecord& shape);

/// Takes any value that the record can hold; names also by short name ("grid"
/// for "gridPatch"), with blanks, or by number. Otherwise nothing changes and
/// the reason names the key.
[[nodiscard]] Status setField(const ShapeField& field, std::string_view text, ShapeRecord& shape);

/// emitter.pathPointCount as a generation of this shape would leave it.
[[nodiscard]] std::int32_t generatedPathPointCount(const ShapeRecord& shape);

}  // namespace pv
