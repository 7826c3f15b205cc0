#include "view3d/shape_view.h"

#include <algorithm>
#include <cmath>

#include "shape/random_directions.h"
#include "view3d/frame_grid.h"
#include "view3d/handles.h"
#include "view3d/shape_painter.h"
#include "view3d/shape_projection.h"

namespace pv {

namespace {

constexpr float kMaxPixelRatio = 16.0F;  // beyond any screen
constexpr float kDotHalfSize = 1.0F;     // pixels of 96 dpi

constexpr ViewResponse kRepaint{true, false, false};

// Far beyond any screen, and small enough that differences cannot overflow.
PixelPoint onDesk(PixelPoint p) {
  constexpr std::int32_t kReach = 1 << 24;
  return {std::clamp(p.x, -kReach, kReach), std::clamp(p.y, -kReach, kReach)};
}

bool isDrawn(ViewMode mode) {
  return mode >= ViewMode::Perspective && mode <= ViewMode::Side;
}

bool disperses(const ModifierTable& values) {
  return values[ModifierKind::VertexDisperse] != Vec3{};
}

}  // namespace

// --- the shape ---------------------------------------------------------------

void ShapeView::setShape(const ShapeRecord& shape) {
  record_ = shape;
  set_.values = toTable(shape.modifiers, shape.duplicates.bulge);
  SetEmitterKind(static_cast<std::int32_t>(shape.emitter.kind));
}

ShapeRecord ShapeView::shape() const {
  ShapeRecord shape = record_;
  shape.modifiers = toFileOrder(set_.values);
  shape.duplicates.bulge = bulgeOf(set_.values);
  return shape;
}

ViewResponse ShapeView::SetEmitterKind(std::int32_t kind) {
  sectionsAreCurrent_ = false;
  if (!isEmitterKind(kind)) {
    return {};
  }
  kind_ = static_cast<EmitterKind>(kind);
  const std::span<const Vec3> points = record_.path.inUse();
  profile_.assign(points.begin(), points.end());
  generate(false);
  return kRepaint;
}

// Where nothing that generation reads has changed the columns stay. Neither the
// vertices nor their copies are built: a frame makes them as it draws them.
void ShapeView::generate(bool shown) {
  if (!sectionsAreCurrent_) {
    EmitterSettings emitter = record_.emitter;
    emitter.kind = kind_;
    mesh_.SetProfile(profile_);
    beginShape(mesh_, emitter, sections_);
    const auto all = static_cast<std::int64_t>(sections_.vertices() * instances());
    if (all > mesh_.vertexLimit()) {
      sections_.clear();
    }
    sectionsAreCurrent_ = true;
    sourceChanged_ = true;
  }
  moveSequence(shown);
}

std::size_t ShapeView::instances() const {
  return static_cast<std::size_t>(effectiveCopies(record_.emitter.copies)) + 1;
}

// Every regeneration moves the random sequence on, by the directions of the
// single shape, which nobody sees, and by those of all instances. They are drawn
// only for a frame in which Vertex Disperse shows them.
void ShapeView::moveSequence(bool shown) {
  const std::size_t each = sections_.vertices();
  const std::size_t all = each * instances();
  if (instances() > 1) {
    random_.skip(kDrawsPerVertex * each);
  }
  std::size_t drawn = 0;
  if (shown && disperses(set_.values)) {
    drawn = record_.applyModifiersGlobally != 0 ? all : each;
  }
  sourceChanged_ = sourceChanged_ || drawn > 0 || directions_.size() > 0;
  directions_.clear();
  if (drawn > 0) {
    directions_.take(random_, drawn);
  }
  random_.skip(kDrawsPerVertex * (all - drawn));
}

const ShapeColumns& ShapeView::updateColumns() {
  generate(true);
  columns_.update({sections_, directions_, sourceChanged_}, set_.values,
                  duplicateStep(record_.emitter, record_.duplicates),
                  {record_.applyModifiersGlobally != 0, record_.useWorldAxis != 0}, share_);
  sourceChanged_ = false;
  return columns_;
}

void ShapeView::updateMesh() {
  EmitterSettings emitter = record_.emitter;
  emitter.kind = kind_;
  mesh_.SetProfile(profile_);
  GenerateShape(mesh_, emitter, record_.duplicates, random_,
                disperses(set_.values) ? Directions::Draw : Directions::SkipOnly);
  ApplyModifiers(mesh_, set_.values, duplicateStep(record_.emitter, record_.duplicates),
                 {record_.applyModifiersGlobally != 0, record_.useWorldAxis != 0});
  sectionsAreCurrent_ = false;
}

void ShapeView::setModifiers(const ModifierTable& values) {
  set_.values = values;
}

ViewResponse ShapeView::toggleModifier(ModifierKind kind) {
  return SelectModifier(kind == set_.selected ? ModifierKind::None : kind);
}

ViewResponse ShapeView::SelectModifier(ModifierKind kind) {
  pv::SelectModifier(set_, kind);
  return kRepaint;
}

ViewResponse ShapeView::ResetSelectedModifier() {
  const bool any = isModifier(set_.selected);
  pv::ResetSelectedModifier(set_);
  return {any, false, any};
}

ViewResponse ShapeView::ResetAllModifiers() {
  pv::ResetAllModifiers(set_);
  return {true, false, true};
}

// --- the view ----------------------------------------------------------------

ViewResponse ShapeView::setViewMode(ViewMode mode) {
  mode_ = mode;
  return kRepaint;
}

ViewResponse ShapeView::setCamera(const ViewCamera& camera) {
  camera_ = camera;
  return {true, true, false};
}

ViewResponse ShapeView::setShowLines(bool on) {
  showLines_ = on;
  return kRepaint;
}

ViewResponse ShapeView::setShowGrid(bool on) {
  showGrid_ = on;
  return kRepaint;
}

void ShapeView::setSize(std::int32_t width, std::int32_t height, float pixelRatio) {
  width_ = std::clamp(width, 0, kMaxFrameSide);
  height_ = std::clamp(height, 0, kMaxFrameSide);
  pixelRatio_ = pixelRatio >= 1.0F ? std::min(pixelRatio, kMaxPixelRatio) : 1.0F;
}

// --- the mouse ---------------------------------------------------------------

ViewResponse ShapeView::mousePress(PixelPoint position) {
  drag_.press(onDesk(position));
  return {};
}

ViewResponse ShapeView::mouseRelease() {
  drag_.release();
  return kRepaint;
}

ViewResponse ShapeView::mouseMove(PixelPoint position) {
  const PixelPoint at = onDesk(position);
  const HandleDrag::Outcome outcome = drag_.move(at, hitTest(at), set_);
  ViewResponse response;
  response.modifierChanged = outcome.modifierChanged;
  if (outcome.moveCamera) {
    response.cameraChanged = dragCamera(camera_, tool_, outcome.dx, outcome.dy);
  }
  response.repaint = outcome.handleChanged || outcome.modifierChanged || response.cameraChanged;
  return response;
}

Handle ShapeView::hitTest(PixelPoint position) {
  const auto inDevicePixels = [this](std::int32_t value) {
    return static_cast<std::int32_t>(std::lround(static_cast<float>(value) * pixelRatio_));
  };
  return projector_.hitHandle({inDevicePixels(position.x), height_ - inDevicePixels(position.y)});
}

// --- frames ------------------------------------------------------------------

std::span<const std::uint32_t> ShapeView::drawFrame() {
  projector_.setSize(width_, height_);
  updateColumns();
  const bool isNew = frame_.begin(backgroundScene());
  RasterCanvas canvas(frame_.data(), width_, height_);
  canvas.textScale = std::max(1, static_cast<std::int32_t>(std::lround(pixelRatio_)));
  if (!isDrawn(mode_) || frame_.pixels().empty()) {
    projector_.clearHandles();
    return frame_.pixels();
  }
  const Vec3 eye = eyePosition(camera_.yaw, camera_.pitch, camera_.distance);
  const ShapeProjection projection{
      mode_, viewMatrix(eye, camera_.roll), {canvas.width / 2, canvas.height / 2}};
  if (isNew && showGrid_) {
    drawBackground(canvas, projection.view, eye);
  }
  drawShape(canvas, projection);
  return frame_.pixels();
}

// Without its grid a background is black whatever the view.
BackgroundScene ShapeView::backgroundScene() const {
  BackgroundScene scene;
  scene.width = width_;
  scene.height = height_;
  scene.showGrid = showGrid_;
  if (showGrid_ || !isDrawn(mode_)) {
    scene.mode = mode_;
    scene.camera = camera_;
    scene.projectorWidth = projector_.width();
    scene.projectorHeight = projector_.height();
    scene.pixelRatio = pixelRatio_;
  }
  return scene;
}

void ShapeView::drawBackground(RasterCanvas& canvas, const Matrix4& view, Vec3 eye) {
  if (mode_ == ViewMode::Perspective) {
    drawGrid3D(canvas, projector_, view);
  } else {
    drawFlatBackground(canvas, projector_, mode_, eye, pixelRatio_);
  }
}

void ShapeView::drawShape(RasterCanvas& canvas, const ShapeProjection& projection) {
  const PixelBox shape =
      showLines_ ? painter_.collectLines(canvas, columns_, projector_, projection, share_)
                 : painter_.collectDots(canvas, columns_, projector_, projection,
                                        kDotHalfSize * pixelRatio_, share_);
  const PixelBox handles = handlesBox(canvas, projector_, projection, set_, pixelRatio_);
  frame_.cover(shape.with(handles));
  painter_.paint(frame_, share_);
  frame_.touch(handles);
  drawHandles(canvas, projector_, projection, set_, highlightedHandle(), pixelRatio_);
}

// During a drag the handle that is dragged shows as a ring wherever the pointer
// is; otherwise the one under the pointer.
Handle ShapeView::highlightedHandle() const {
  if (drag_.handleDrag) {
    return drag_.active;
  }
  for (std::int32_t i = 0; i < kHandleCount; ++i) {
    if (projector_.isHovered(static_cast<Handle>(i))) {
      return static_cast<Handle>(i);
    }
  }
  return Handle::None;
}

}  // namespace pv
