#include "shape/modifier_kind.h"

#include "util/ascii.h"

namespace pv {

namespace {

constexpr float kUnitDrag = 200.0F;  // pixels for one shape unit or one factor
constexpr float kPixelDrag = 1.0F;   // one degree or per cent a pixel

}  // namespace

using enum ModifierKind;
using enum CentreDrag;

const std::array<ModifierTraits, kModifierCount> kModifiers{{
    {VertexMove, "vertexMove", "Vertex Move", 0, 0, kUnitDrag, Nothing, HandleFrame::VertexMoved},
    {VertexRotate, "vertexRotate", "Vertex Rotate", 1, 0, kPixelDrag, Tumble,
     HandleFrame::VertexTurned},
    {VertexScale, "vertexScale", "Vertex Scale", 2, 1, kUnitDrag, AllAxes,
     HandleFrame::VertexTurned},
    {PinchA, "pinchA", "Pinch A", 4, 0, kPixelDrag, AllAxes, HandleFrame::Identity},
    {VertexDisperse, "vertexDisperse", "Vertex Disperse", 3, 0, kPixelDrag, AllAxes,
     HandleFrame::Identity},
    {Bend, "bend", "Bend", 9, 0, kPixelDrag, AllAxes, HandleFrame::Identity},
    {Twist, "twist", "Twist", 10, 0, kPixelDrag, AllAxes, HandleFrame::Identity},
    {PinchB, "pinchB", "Pinch B", 5, 0, kPixelDrag, AllAxes, HandleFrame::Identity},
    {ShapeMove, "shapeMove", "Shape Move", 11, 0, kUnitDrag, Nothing, HandleFrame::ShapeMoved},
    {ShapeRotate, "shapeRotate", "Shape Rotate", 12, 0, kPixelDrag, Tumble,
     HandleFrame::ShapeTurned},
    {ShapeScale, "shapeScale", "Shape Scale", 13, 1, kUnitDrag, AllAxes, HandleFrame::ShapeTurned},
    {Taper, "taper", "Taper", 6, 0, kPixelDrag, Nothing, HandleFrame::Identity},
    {ShearA, "shearA", "Shear A", 7, 0, kPixelDrag, Nothing, HandleFrame::Identity},
    {ShearB, "shearB", "Shear B", 8, 0, kPixelDrag, Nothing, HandleFrame::Identity},
    {Bulge, "bulge", "Bulge", -1, 0, kPixelDrag, AllAxes, HandleFrame::Identity},
}};

ModifierKind modifierByKey(std::string_view key) {
  for (const auto& row : kModifiers) {
    if (equalIgnoringCase(key, row.key)) {
      return row.kind;
    }
  }
  return None;
}

}  // namespace pv
