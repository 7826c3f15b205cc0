#pragma once

#include <array>

#include "math/vec3.h"
#include "shape/modifier_kind.h"

namespace pv {

/// The x, y, z values of the fifteen modifiers by index; angles in degrees.
/// Angles and offsets are 0 and scale factors 1 when they change nothing.
class ModifierTable {
 public:
  ModifierTable();

  [[nodiscard]] Vec3& operator[](ModifierKind kind) {
    return values_[static_cast<std::size_t>(kind)];
  }
  [[nodiscard]] const Vec3& operator[](ModifierKind kind) const {
    return values_[static_cast<std::size_t>(kind)];
  }
  void reset(ModifierKind kind);
  bool operator==(const ModifierTable&) const = default;

 private:
  std::array<Vec3, kModifierCount> values_;
};

/// The fourteen triples of a shape file, in file order.
struct ModifierValues {
  ModifierValues();
  std::array<Vec3, 14> triples;
  bool operator==(const ModifierValues&) const = default;
};

/// The table that a view works on, with the modifier that is being edited.
struct ModifierSet {
  ModifierTable values;
  ModifierKind selected = ModifierKind::None;
};

void SelectModifier(ModifierSet& set, ModifierKind kind);
/// Nothing happens while no modifier is selected.
void ResetSelectedModifier(ModifierSet& set);
/// Resets every modifier; the selection stays.
void ResetAllModifiers(ModifierSet& set);

/// Between the table and its two homes in a shape record.
[[nodiscard]] ModifierTable toTable(const ModifierValues& values,
                                    const std::array<float, 3>& bulge);
[[nodiscard]] ModifierValues toFileOrder(const ModifierTable& table);
[[nodiscard]] std::array<float, 3> bulgeOf(const ModifierTable& table);

}  // namespace pv
