#include "scenes.h"

#include <algorithm>

#include "shape/modifier_values.h"

namespace pv::bench {

namespace {

EmitterSettings gridPatch() {
  EmitterSettings emitter;
  emitter.kind = EmitterKind::GridPatch;
  emitter.horizontalAmount = 40;
  emitter.horizontalSize = 25;
  emitter.verticalAmount = 40;
  emitter.verticalSize = 25;
  return emitter;
}

EmitterSettings spherePatch() {
  EmitterSettings emitter;
  emitter.kind = EmitterKind::SpherePatch;
  emitter.horizontalAmount = 400;
  emitter.horizontalSize = 0;
  emitter.horizontalEnd = 180;
  emitter.verticalAmount = 400;
  emitter.verticalSize = 360;
  return emitter;
}

// Twenty copies, 17 degrees apart about the world's vertical axis: a full turn,
// and a ring as soon as the shape is moved off that axis.
void addRing(ShapeRecord& shape) {
  shape.emitter.copies = kMaxDuplicateCopies;
  shape.useWorldAxis = 1;
  shape.duplicates.position = {0.0F, 1.0F, 0.0F};
  shape.duplicates.rotation = {0.0F, 17.0F, 0.0F};
  shape.duplicates.scale = {-2.0F, -2.0F, -2.0F};
}

// Each of the fifteen does its work, and the shape stays in the picture.
ModifierTable modestModifiers() {
  ModifierTable values;
  values[ModifierKind::VertexMove] = {0.02F, -0.01F, 0.03F};
  values[ModifierKind::VertexRotate] = {10.0F, 20.0F, 5.0F};
  values[ModifierKind::VertexScale] = {0.9F, 0.8F, 0.9F};
  values[ModifierKind::PinchA] = {20.0F, 10.0F, 15.0F};
  values[ModifierKind::VertexDisperse] = {2.0F, 3.0F, 2.0F};
  values[ModifierKind::Bend] = {15.0F, 10.0F, 5.0F};
  values[ModifierKind::Twist] = {10.0F, 30.0F, 10.0F};
  values[ModifierKind::PinchB] = {10.0F, 20.0F, 10.0F};
  values[ModifierKind::ShapeMove] = {0.3F, 0.05F, 0.0F};
  values[ModifierKind::ShapeRotate] = {15.0F, 25.0F, 10.0F};
  values[ModifierKind::ShapeScale] = {0.5F, 0.5F, 0.5F};
  values[ModifierKind::Taper] = {10.0F, 20.0F, 5.0F};
  values[ModifierKind::ShearA] = {5.0F, 10.0F, 5.0F};
  values[ModifierKind::ShearB] = {10.0F, 5.0F, 5.0F};
  values[ModifierKind::Bulge] = {5.0F, 10.0F, 5.0F};
  return values;
}

}  // namespace

const std::vector<Scene>& allScenes() {
  static const std::vector<Scene> kScenes{
      {"S1/neutral", Emitter::Grid, Modifiers::Neutral},
      {"S1/all", Emitter::Grid, Modifiers::All},
      {"S2/neutral", Emitter::Sphere, Modifiers::Neutral},
      {"S2/all", Emitter::Sphere, Modifiers::All},
      {"S3/neutral", Emitter::SphereRing, Modifiers::Neutral},
      {"S3/all", Emitter::SphereRing, Modifiers::All},
      {"S3/all-globally", Emitter::SphereRing, Modifiers::AllGlobally},
  };
  return kScenes;
}

ShapeRecord makeShape(const Scene& scene) {
  ShapeRecord shape;
  shape.emitter = scene.emitter == Emitter::Grid ? gridPatch() : spherePatch();
  if (scene.emitter == Emitter::SphereRing) {
    addRing(shape);
  }
  if (scene.modifiers != Modifiers::Neutral) {
    const ModifierTable values = modestModifiers();
    shape.modifiers = toFileOrder(values);
    shape.duplicates.bulge = bulgeOf(values);
  }
  shape.applyModifiersGlobally = scene.modifiers == Modifiers::AllGlobally ? 1 : 0;
  return shape;
}

ShapeRecord makeShape(std::string_view name) {
  return makeShape(*std::ranges::find(allScenes(), name, &Scene::name));
}

std::string FrameSize::name() const {
  return std::to_string(width) + "x" + std::to_string(height);
}

ViewCamera benchCamera() {
  return {.yaw = 300.0F, .pitch = 20.0F, .roll = 0.0F, .distance = 1.2F};
}

}  // namespace pv::bench
