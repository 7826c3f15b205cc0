#pragma once

#include <array>

#include "math/vec3.h"
#include "shape/shape_record.h"

namespace pv::reference {

/// The middle of the modifiers, from Disperse to Bulge, with what does not depend
/// on the vertex made once. Values stand in file order.
class Chain {
 public:
  explicit Chain(const ShapeRecord& shape);
  void apply(Vec3& p, Vec3 direction) const;

 private:
  std::array<Vec3, 14> values_;
  std::array<Vec3, 14> hundredths_;
  std::array<bool, 14> works_{};
  Vec3 disperse_;
  Vec3 bulge_;
  bool bulges_ = false;
};

}  // namespace pv::reference
