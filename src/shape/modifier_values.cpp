#include "shape/modifier_values.h"

namespace pv {

namespace {

Vec3 neutralValue(const ModifierTraits& row) {
  return {row.neutral, row.neutral, row.neutral};
}

}  // namespace

ModifierTable::ModifierTable() {
  for (const auto& row : kModifiers) {
    reset(row.kind);
  }
}

void ModifierTable::reset(ModifierKind kind) {
  (*this)[kind] = neutralValue(traits(kind));
}

ModifierValues::ModifierValues() {
  for (const auto& row : kModifiers) {
    if (row.fileTriple >= 0) {
      triples[static_cast<std::size_t>(row.fileTriple)] = neutralValue(row);
    }
  }
}

void SelectModifier(ModifierSet& set, ModifierKind kind) {
  set.selected = isModifier(kind) ? kind : ModifierKind::None;
}

void ResetSelectedModifier(ModifierSet& set) {
  if (isModifier(set.selected)) {
    set.values.reset(set.selected);
  }
}

void ResetAllModifiers(ModifierSet& set) {
  set.values = ModifierTable();
}

ModifierTable toTable(const ModifierValues& values, const std::array<float, 3>& bulge) {
  ModifierTable table;
  for (const auto& row : kModifiers) {
    table[row.kind] = row.fileTriple >= 0 ? values.triples[static_cast<std::size_t>(row.fileTriple)]
                                          : Vec3{bulge[0], bulge[1], bulge[2]};
  }
  return table;
}

ModifierValues toFileOrder(const ModifierTable& table) {
  ModifierValues values;
  for (const auto& row : kModifiers) {
    if (row.fileTriple >= 0) {
      values.triples[static_cast<std::size_t>(row.fileTriple)] = table[row.kind];
    }
  }
  return values;
}

std::array<float, 3> bulgeOf(const ModifierTable& table) {
  const Vec3& bulge = table[ModifierKind::Bulge];
  return {bulge.x, bulge.y, bulge.z};
}

}  // namespace pv
