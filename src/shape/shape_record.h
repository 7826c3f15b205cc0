#pragma once

#include <cstdint>

#include "path/path_record.h"
#include "shape/modifier_values.h"
#include "shape/shape_settings.h"

namespace pv {

/// Everything that a shape file holds: the document of the program, a plain
/// value. A default-made record is a fresh shape.
struct ShapeRecord {
  std::int32_t applyModifiersGlobally = 0;
  std::int32_t useWorldAxis = 0;
  DuplicateSettings duplicates;
  EmitterSettings emitter;
  PathRecord path;
  ModifierValues modifiers;
  DuplicateMapping mapping = DuplicateMapping::Normal;

  bool operator==(const ShapeRecord&) const = default;
};

/// The figure of the line "Total Emitter Count = %d". A point counts 1 whatever
/// its copies; loft and sweep count one point more a section than the mesh has.
/// Taken in 64 bits; amounts from files may be anything.
[[nodiscard]] std::int64_t totalEmitterCount(const EmitterSettings& emitter);

}  // namespace pv
