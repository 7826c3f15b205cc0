#include "shape/emitter_page.h"

#include <algorithm>
#include <string>

#include "math/scalar.h"

namespace pv {

namespace {

constexpr PageRange kSectionSize{1, 100};  // thousandths of a unit
constexpr PageRange kFullTurn{0, 360};     // degrees
constexpr PageRange kHalfTurn{0, 180};

constexpr PageImages kRotations{"/bin/program/rotations-2.png", "/bin/program/rotations-1.png"};
constexpr PageImages kAngle{"/bin/program/angle-full.png", "/bin/program/angle-empty.png"};
constexpr PageImages kColumns{"/bin/program/object-grid2.png", "/bin/program/object-grid3.png"};
constexpr PageImages kWidth{"/bin/program/object-grid13.png", "/bin/program/object-grid5.png"};
constexpr PageImages kHeight{"/bin/program/object-grid12.png", "/bin/program/object-grid7.png"};
constexpr PageImages kStart{"/bin/program/orb-4.png", "/bin/program/orb-3.png"};

bool turns(EmitterKind kind) {
  return kind == EmitterKind::SpherePatch || kind == EmitterKind::SweepPath;
}

// A step from a file may be a fraction; a control that still shows its whole
// part has not been moved, so the fraction stays.
void storeStep(std::int32_t shown, float& step) {
  if (shown != truncate(step)) {
    step = static_cast<float>(shown);
  }
}

// Any number but 0 in a file means yes, and stays until the box is clicked.
void storeFlag(bool shown, std::int32_t& flag) {
  if (shown != (flag != 0)) {
    flag = shown ? 1 : 0;
  }
}

}  // namespace

EmitterPageLook emitterPageLook(EmitterKind kind) {
  EmitterPageLook look;
  const bool turned = turns(kind);
  look.verticalHeader = turned ? "Vertical Rotations" : "Vertical Sections";
  look.verticalSizeLabel = turned ? "Angle:" : "Width:";
  look.verticalSize = turned ? kFullTurn : kSectionSize;
  look.verticalAmountImages = turned ? kRotations : kColumns;
  look.verticalSizeImages = turned ? kAngle : kWidth;

  const bool sphere = kind == EmitterKind::SpherePatch;
  look.horizontalSizeLabel = sphere ? "Start:" : "Height:";
  look.horizontalSize = sphere ? kHalfTurn : kSectionSize;
  look.horizontalSizeImages = sphere ? kStart : kHeight;

  const bool path = kind == EmitterKind::LoftPath || kind == EmitterKind::SweepPath;
  look.horizontalSections = sphere || kind == EmitterKind::GridPatch;
  look.horizontalEnd = sphere;
  look.verticalSections = look.horizontalSections || path;
  look.editPath = path;
  return look;
}

void chooseEmitterKind(EmitterPageState& state, EmitterKind kind) {
  if (!isEmitterKind(static_cast<std::int32_t>(kind))) {
    return;
  }
  state.emitter.kind = kind;
  const bool sections = kind == EmitterKind::GridPatch || kind == EmitterKind::LoftPath;
  if (sections) {
    state.emitter.verticalSize = std::min(state.emitter.verticalSize, kSectionSize.high);
  }
  if (kind != EmitterKind::SpherePatch) {
    state.emitter.horizontalSize = std::min(state.emitter.horizontalSize, kSectionSize.high);
  }
}

void resetDuplicateAxis(DuplicateAxis& values, std::size_t axis) {
  constexpr std::int32_t kFirstStepX = 10;  // so that a first copy can be seen at once
  values = {axis == 0 ? kFirstStepX : 0, 0, 0};
}

std::string emitterCountText(const EmitterSettings& emitter) {
  return "Total Emitter Count = " + std::to_string(totalEmitterCount(emitter));
}

EmitterPageState emitterPageOf(const ShapeRecord& shape, std::int32_t selectedAxis) {
  EmitterPageState page;
  page.emitter = shape.emitter;
  page.emitter.selectedAxis = selectedAxis;
  for (std::size_t axis = 0; axis < page.axes.size(); ++axis) {
    page.axes[axis] = {truncate(shape.duplicates.position[axis]),
                       truncate(shape.duplicates.rotation[axis]),
                       truncate(shape.duplicates.scale[axis])};
  }
  page.applyModifiersGlobally = shape.applyModifiersGlobally != 0;
  page.useWorldAxis = shape.useWorldAxis != 0;
  page.mapping = shape.mapping;
  return page;
}

void storeEmitterPage(const EmitterPageState& page, ShapeRecord& shape) {
  shape.emitter = page.emitter;
  for (std::size_t axis = 0; axis < page.axes.size(); ++axis) {
    storeStep(page.axes[axis].position, shape.duplicates.position[axis]);
    storeStep(page.axes[axis].rotation, shape.duplicates.rotation[axis]);
    storeStep(page.axes[axis].scale, shape.duplicates.scale[axis]);
  }
  storeFlag(page.applyModifiersGlobally, shape.applyModifiersGlobally);
  storeFlag(page.useWorldAxis, shape.useWorldAxis);
  shape.mapping = page.mapping;
}

}  // namespace pv
