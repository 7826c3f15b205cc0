#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace pv {

/// Index by which a modifier is selected and reset. The order in files and the
/// order of application are two other orders.
enum class ModifierKind : std::int32_t {
  None = -1,
  VertexMove,
  VertexRotate,
  VertexScale,
  PinchA,
  VertexDisperse,
  Bend,
  Twist,
  PinchB,
  ShapeMove,
  ShapeRotate,
  ShapeScale,
  Taper,
  ShearA,
  ShearB,
  Bulge,
};
inline constexpr std::int32_t kModifierCount = 15;

/// What dragging the centre handle does.
enum class CentreDrag : std::uint8_t {
  Nothing,
  AllAxes,  ///< all three values change together
  Tumble,   ///< x and y follow the raw movement
};

/// The frame in which a modifier's handles are drawn.
enum class HandleFrame : std::uint8_t {
  Identity,      ///< axes of the space, at the origin
  VertexMoved,   ///< axes of the space, at the vertex offset
  VertexTurned,  ///< turned and scaled with the vertices, at the vertex offset
  ShapeMoved,
  ShapeTurned,
};

struct ModifierTraits {
  ModifierKind kind;
  std::string_view key;     ///< name in scripts, as in "modifiers.twist.y"
  std::string_view name;    ///< name for people, as in "Vertex Move"
  std::int32_t fileTriple;  ///< place among the fourteen triples of a file; -1 for Bulge
  float neutral;            ///< value of all three axes that changes nothing
  float dragDivisor;        ///< pixels of handle movement a unit
  CentreDrag centreDrag;
  HandleFrame frame;
};

/// One row a modifier, in index order.
extern const std::array<ModifierTraits, kModifierCount> kModifiers;

[[nodiscard]] constexpr bool isModifier(ModifierKind kind) {
  return kind >= ModifierKind::VertexMove && kind <= ModifierKind::Bulge;
}
/// `kind` must be one of the fifteen.
[[nodiscard]] inline const ModifierTraits& traits(ModifierKind kind) {
  return kModifiers[static_cast<std::size_t>(kind)];
}
/// By key, ASCII case ignored; None when there is no such modifier.
[[nodiscard]] ModifierKind modifierByKey(std::string_view key);

}  // namespace pv
