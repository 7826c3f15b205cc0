#include <algorithm>
#include <array>
#include <cstdint>

#include "byte_source.h"
#include "entries.h"
#include "require.h"
#include "shape/shape_file.h"
#include "view3d/shape_view.h"

namespace pv::fuzz {

namespace {

constexpr std::int64_t kVertexLimit = 20'000;
constexpr int kMostEvents = 64;
constexpr int kMostFrames = 6;

Vec3 triple(ByteSource& source) {
  const float x = source.value();
  const float y = source.value();
  const float z = source.value();
  return {x, y, z};
}

std::array<float, 3> values(ByteSource& source) {
  const Vec3 v = triple(source);
  return {v.x, v.y, v.z};
}

EmitterSettings emitterFrom(ByteSource& source) {
  EmitterSettings emitter;
  const std::uint8_t kind = source.byte();
  emitter.kind = static_cast<EmitterKind>(kind < 240 ? kind % kEmitterKindCount : source.amount());
  const std::uint8_t flags = source.byte();
  emitter.horizontalCentre.slot = (flags & 4U) != 0 ? source.word() : flags & 1U;
  emitter.verticalCentre.slot = (flags >> 1U) & 1U;
  emitter.horizontalAmount = source.amount();
  emitter.horizontalSize = source.amount();
  emitter.horizontalEnd = source.amount();
  emitter.verticalAmount = source.amount();
  emitter.verticalSize = source.amount();
  emitter.copies = (flags & 8U) != 0 ? source.amount() : 0;
  return emitter;
}

PathRecord pathFrom(ByteSource& source) {
  constexpr std::int32_t kMostGiven = 40;
  PathRecord path;
  path.count = source.amount();
  const std::int32_t given = std::clamp(path.count, 0, kMostGiven);
  for (std::int32_t i = 0; i < given; ++i) {
    path.points[static_cast<std::size_t>(i)] = triple(source);
  }
  return path;
}

ShapeRecord shapeFrom(ByteSource& source) {
  ShapeRecord shape;
  shape.emitter = emitterFrom(source);
  const std::uint8_t flags = source.byte();
  shape.applyModifiersGlobally = flags & 1U;
  shape.useWorldAxis = (flags >> 1U) & 1U;
  if (shape.emitter.copies != 0) {
    shape.duplicates.position = values(source);
    shape.duplicates.rotation = values(source);
    shape.duplicates.scale = values(source);
  }
  const std::uint32_t active = source.byte() | std::uint32_t{source.byte()} << 8U;
  for (std::size_t i = 0; i < shape.modifiers.triples.size(); ++i) {
    if ((active >> i & 1U) != 0) {
      shape.modifiers.triples[i] = triple(source);
    }
  }
  if ((active >> shape.modifiers.triples.size() & 1U) != 0) {
    shape.duplicates.bulge = values(source);
  }
  if ((flags & 4U) != 0) {
    shape.path = pathFrom(source);
  }
  return shape;
}

ViewCamera cameraFrom(ByteSource& source) {
  ViewCamera camera;
  camera.yaw = source.value();
  camera.pitch = source.value();
  camera.roll = source.value();
  camera.distance = source.flag() ? source.value() : kMinCameraDistance;
  return camera;
}

// Small frames, or ones that are extreme in one direction only.
void resize(ShapeView& view, ByteSource& source) {
  constexpr std::array kRatios{1.0F, 1.0F, 1.5F, 2.0F, 3.0F};
  constexpr std::int32_t kNarrow = 8;
  std::int32_t width = source.byte() % 120;
  std::int32_t height = source.byte() % 120;
  const std::uint8_t taste = source.byte();
  if (taste >= 220) {
    const std::int32_t extreme = source.amount();
    (taste % 2 == 0 ? width : height) = extreme;
    (taste % 2 == 0 ? height : width) %= kNarrow;
  }
  const std::size_t ratio = taste % (kRatios.size() + 1);
  view.setSize(width, height, ratio < kRatios.size() ? kRatios[ratio] : source.value());
}

// Promises that hold for every shape, whatever its values.
void drawFrame(ShapeView& view) {
  const auto frame = view.drawFrame();
  const auto area =
      static_cast<std::size_t>(view.width()) * static_cast<std::size_t>(view.height());
  require(frame.size() == area, "a frame has the view's size");
  require(std::ranges::all_of(frame, [](auto word) { return word == 0 || word >> 24U == 0xFF; }),
          "pixels are untouched or opaque");
  require(static_cast<std::int64_t>(view.drawnVertices()) <= kVertexLimit,
          "the vertex limit holds");
  view.updateMesh();
  const MeshSlot* slot = view.mesh().current();
  if (slot == nullptr) {
    return;
  }
  const std::size_t vertices = slot->position.size();
  require(slot->base.size() == vertices, "every vertex has both positions");
  require(static_cast<std::int64_t>(vertices) <= kVertexLimit, "the vertex limit holds");
  require(std::ranges::all_of(
              slot->lines,
              [=](ShapeLine line) { return line.first < vertices && line.second < vertices; }),
          "segments join vertices that exist");
}

void setShape(ShapeView& view, ByteSource& source) {
  const ShapeRecord shape = shapeFrom(source);
  view.setShape(shape);
  require(encodeShapeFile(view.shape()) == encodeShapeFile(shape), "a view keeps all values");
}

PixelPoint positionFrom(const ShapeView& view, ByteSource& source) {
  const std::uint8_t x = source.byte();
  const std::uint8_t y = source.byte();
  if (x < 250) {
    return {x * view.width() / 250, y * view.height() / 250};
  }
  const std::int32_t far = source.amount();
  return x % 2 == 0 ? PixelPoint{far, y} : PixelPoint{y, far};
}

void changeView(ShapeView& view, ByteSource& source) {
  switch (source.byte() % 10) {
    case 0:
      view.toggleModifier(static_cast<ModifierKind>(source.amount()));
      return;
    case 1:
      view.SelectModifier(static_cast<ModifierKind>(source.amount()));
      return;
    case 2:
      source.flag() ? view.ResetSelectedModifier() : view.ResetAllModifiers();
      return;
    case 3:
      view.setViewMode(static_cast<ViewMode>(source.amount()));
      return;
    case 4:
      view.setCameraTool(static_cast<CameraTool>(source.byte() % 3));
      return;
    case 5:
      view.setShowLines(source.flag());
      return;
    case 6:
      view.setShowGrid(source.flag());
      return;
    case 7:
      view.setCamera(cameraFrom(source));
      return;
    case 8:
      view.SetEmitterKind(source.amount());
      return;
    default:
      setShape(view, source);
      return;
  }
}

void playEvents(ShapeView& view, ByteSource& source) {
  int frames = 0;
  for (int event = 0; event < kMostEvents && !source.empty(); ++event) {
    switch (source.byte() % 8) {
      case 0:
        view.mousePress(positionFrom(view, source));
        break;
      case 1:
      case 2:
      case 3:
        view.mouseMove(positionFrom(view, source));
        break;
      case 4:
        view.mouseRelease();
        break;
      case 5:
        if (frames++ < kMostFrames) {
          drawFrame(view);
        }
        break;
      case 6:
        resize(view, source);
        break;
      default:
        changeView(view, source);
        break;
    }
  }
}

}  // namespace

void runRender(std::span<const std::byte> bytes) {
  ByteSource source(bytes);
  ShapeView view;
  view.setVertexLimit(kVertexLimit);
  setShape(view, source);
  resize(view, source);
  const std::uint8_t switches = source.byte();
  view.setViewMode(static_cast<ViewMode>(switches % 5));
  view.SelectModifier(static_cast<ModifierKind>(source.byte() % (kModifierCount + 1) - 1));
  view.setShowLines((switches & 0x40U) == 0);
  view.setShowGrid((switches & 0x80U) == 0);
  if ((switches & 0x20U) != 0) {
    view.setCamera(cameraFrom(source));
  }
  drawFrame(view);
  playEvents(view, source);
  drawFrame(view);
}

}  // namespace pv::fuzz
