#include "shape/shape_fields.h"

#include <algorithm>
#include <array>
#include <bit>
#include <type_traits>
#include <utility>
#include <vector>

#include "shape/modifier_kind.h"
#include "util/ascii.h"

namespace pv {

namespace {

constexpr std::array<std::string_view, kEmitterKindCount> kKindNames{
    "point", "gridPatch", "spherePatch", "loftPath", "sweepPath"};
constexpr std::array<std::string_view, 3> kAxisNames{"x", "y", "z"};
constexpr std::array<std::string_view, 3> kMappingNames{"normal", "horizontal", "vertical"};

constexpr FieldRange kAmounts{0, 400};
constexpr FieldRange kLengths{1, 100};
constexpr FieldRange kHalfTurn{0, 180};
constexpr FieldRange kFullTurn{0, 360};
constexpr FieldRange kSteps{-200, 200};
constexpr FieldRange kTruth{0, 1};

// Where a control's range differs from the one in the field table.
struct KindRange {
  std::string_view key;
  EmitterKind kind;
  FieldRange range;
};
constexpr std::array kKindRanges{
    KindRange{"emitter.horizontalSize", EmitterKind::SpherePatch, kHalfTurn},
    KindRange{"emitter.verticalSize", EmitterKind::SpherePatch, kFullTurn},
    KindRange{"emitter.verticalSize", EmitterKind::SweepPath, kFullTurn},
};

// Collects fields in file order. Each field is named by a function that finds
// it in a record, const or not.
class FieldTable {
 public:
  std::vector<ShapeField> fields;

  template <class Find>
  ShapeField& add(std::string key, FieldType type, Find find) {
    ShapeField& field = fields.emplace_back();
    field.key = std::move(key);
    field.type = type;
    field.offset = std::exchange(next_, next_ + sizeof(std::uint32_t));
    field.load = [find](const ShapeRecord& shape) {
      return std::bit_cast<std::uint32_t>(find(shape));
    };
    field.store = [find](ShapeRecord& shape, std::uint32_t bits) {
      auto& value = find(shape);
      value = std::bit_cast<std::remove_reference_t<decltype(value)>>(bits);
    };
    return field;
  }

  template <class Find>
  void addRanged(std::string key, FieldType type, FieldRange range, Find find) {
    add(std::move(key), type, find).range = range;
  }

  template <class Find>
  void addNamed(std::string key, std::span<const std::string_view> names, Find find) {
    add(std::move(key), FieldType::Name, find).names = names;
  }

  // `find` also takes the axis.
  template <class Find>
  void addTriple(const std::string& key, std::optional<FieldRange> range, Find find) {
    for (std::size_t axis = 0; axis < kAxisNames.size(); ++axis) {
      const auto component = [ find, axis ](auto& shape) -> auto& {
        return find(shape, axis);
      };
      add(key + "." + std::string(kAxisNames[axis]), FieldType::Float, component).range = range;
    }
  }

  void skip(std::size_t bytes) { next_ += bytes; }

 private:
  std::size_t next_ = 2;  // behind the version word
};

void addDuplicates(FieldTable& table) {
  using enum FieldType;
  table.add(
      "duplicates.reserved0", Word, [](auto& s) -> auto& { return s.duplicates.reserved0; });
  table.addTriple(
      "duplicates.position", kSteps,
      [](auto& s, std::size_t axis) -> auto& { return s.duplicates.position[axis]; });
  table.addTriple(
      "duplicates.rotation", FieldRange{0, 359},
      [](auto& s, std::size_t axis) -> auto& { return s.duplicates.rotation[axis]; });
  table.addTriple(
      "duplicates.scale", kSteps,
      [](auto& s, std::size_t axis) -> auto& { return s.duplicates.scale[axis]; });
  table.addTriple(
      "modifiers.bulge", {},
      [](auto& s, std::size_t axis) -> auto& { return s.duplicates.bulge[axis]; });
  for (std::size_t i = 0; i < DuplicateSettings().reserved.size(); ++i) {
    table.add(
        "duplicates.reserved." + std::to_string(i),
        Word, [i](auto& s) -> auto& { return s.duplicates.reserved[i]; });
  }
}

void addEmitter(FieldTable& table) {
  using enum FieldType;
  table.addNamed(
      "emitter.kind", kKindNames, [](auto& s) -> auto& { return s.emitter.kind; });
  table.addRanged(
      "emitter.pathPointCount", Integer, {0, kMaxPathPoints},
      [](auto& s) -> auto& { return s.emitter.pathPointCount; });
  table.addRanged(
      "emitter.horizontalAmount", Integer, kAmounts,
      [](auto& s) -> auto& { return s.emitter.horizontalAmount; });
  table.addRanged(
      "emitter.horizontalSize", Integer, kLengths,
      [](auto& s) -> auto& { return s.emitter.horizontalSize; });
  table.addRanged(
      "emitter.horizontalEnd", Integer, kHalfTurn,
      [](auto& s) -> auto& { return s.emitter.horizontalEnd; });
  table.addRanged(
      "emitter.horizontalCentre", ByteFlag, kTruth,
      [](auto& s) -> auto& { return s.emitter.horizontalCentre; });
  table.addRanged(
      "emitter.verticalAmount", Integer, kAmounts,
      [](auto& s) -> auto& { return s.emitter.verticalAmount; });
  table.addRanged(
      "emitter.verticalSize", Integer, kLengths,
      [](auto& s) -> auto& { return s.emitter.verticalSize; });
  table.addRanged(
      "emitter.verticalCentre", ByteFlag, kTruth,
      [](auto& s) -> auto& { return s.emitter.verticalCentre; });
  table.addRanged(
      "emitter.copies", Integer, {0, kMaxDuplicateCopies},
      [](auto& s) -> auto& { return s.emitter.copies; });
  table.add(
      "emitter.reserved1", Word, [](auto& s) -> auto& { return s.emitter.reserved1; });
  table.add(
      "emitter.reserved2", Word, [](auto& s) -> auto& { return s.emitter.reserved2; });
  table.addNamed(
      "emitter.selectedAxis", kAxisNames, [](auto& s) -> auto& { return s.emitter.selectedAxis; });
}

void addModifiers(FieldTable& table) {
  for (std::size_t triple = 0; triple < ModifierValues().triples.size(); ++triple) {
    const auto row = std::find_if(kModifiers.begin(), kModifiers.end(), [triple](const auto& m) {
      return m.fileTriple == static_cast<std::int32_t>(triple);
    });
    table.addTriple(
        "modifiers." + std::string(row->key), {}, [triple](auto& s, std::size_t axis) -> auto& {
          auto& values = s.modifiers.triples[triple];
          return axis == 0 ? values.x : axis == 1 ? values.y : values.z;
        });
  }
}

std::vector<ShapeField> buildFields() {
  using enum FieldType;
  FieldTable table;
  table.addRanged(
      "applyModifiersGlobally", Flag, kTruth,
      [](auto& s) -> auto& { return s.applyModifiersGlobally; });
  table.addRanged(
      "useWorldAxis", Flag, kTruth, [](auto& s) -> auto& { return s.useWorldAxis; });
  addDuplicates(table);
  addEmitter(table);
  table.skip(kPathRecordBytes);
  addModifiers(table);
  table.addNamed(
      "mapping", kMappingNames, [](auto& s) -> auto& { return s.mapping; });
  return std::move(table.fields);
}

}  // namespace

std::span<const ShapeField> shapeFields() {
  static const std::vector<ShapeField> fields = buildFields();
  return fields;
}

const ShapeField* findShapeField(std::string_view key) {
  const auto fields = shapeFields();
  const auto found = std::find_if(fields.begin(), fields.end(), [key](const ShapeField& field) {
    return equalIgnoringCase(field.key, key);
  });
  return found == fields.end() ? nullptr : &*found;
}

std::optional<FieldRange> offeredRange(const ShapeField& field, EmitterKind kind) {
  for (const auto& row : kKindRanges) {
    if (row.kind == kind && row.key == field.key) {
      return row.range;
    }
  }
  return field.range;
}

std::int32_t generatedPathPointCount(const ShapeRecord& shape) {
  switch (shape.emitter.kind) {
    case EmitterKind::Point:
    case EmitterKind::GridPatch:
      return 0;
    case EmitterKind::SpherePatch:
      return std::clamp(shape.emitter.horizontalAmount, -1, kMaxPathPoints - 1) + 1;
    case EmitterKind::LoftPath:
    case EmitterKind::SweepPath:
      return shape.path.count;
  }
  return shape.emitter.pathPointCount;  // an unknown kind generates nothing
}

}  // namespace pv
