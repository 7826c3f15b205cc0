#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "shape/shape_record.h"

namespace pv {

/// What a value control of the emitter page offers.
struct PageRange {
  std::int32_t low = 0;
  std::int32_t high = 0;

  bool operator==(const PageRange&) const = default;
};

/// The two images of a value control, high end first.
struct PageImages {
  std::string_view high;
  std::string_view low;
};

/// How the emitter page presents itself for a kind: headers, labels, ranges,
/// images, and which of its controls can be used.
struct EmitterPageLook {
  std::string_view verticalHeader;
  std::string_view verticalSizeLabel;
  std::string_view horizontalSizeLabel;
  PageRange verticalSize;
  PageRange horizontalSize;
  PageImages verticalAmountImages;
  PageImages verticalSizeImages;
  PageImages horizontalSizeImages;
  bool horizontalSections = false;  ///< horizontal amount, size and centre
  bool horizontalEnd = false;
  bool verticalSections = false;
  bool editPath = false;
};

/// An unknown kind looks like a point.
[[nodiscard]] EmitterPageLook emitterPageLook(EmitterKind kind);

/// The duplicate steps of one axis as the page's three value controls hold them.
struct DuplicateAxis {
  std::int32_t position = 0;
  std::int32_t rotation = 0;
  std::int32_t scale = 0;

  bool operator==(const DuplicateAxis&) const = default;
};

/// Everything that the emitter page holds besides its pixels: a plain value that
/// the page edits and the main dialog copies into the current shape.
struct EmitterPageState {
  EmitterSettings emitter;
  std::array<DuplicateAxis, 3> axes{{{10, 0, 0}, {}, {}}};
  bool applyModifiersGlobally = false;
  bool useWorldAxis = false;
  DuplicateMapping mapping = DuplicateMapping::Normal;

  [[nodiscard]] DuplicateAxis& selectedAxis() { return axes[selectedIndex()]; }
  [[nodiscard]] const DuplicateAxis& selectedAxis() const { return axes[selectedIndex()]; }
  [[nodiscard]] std::size_t selectedIndex() const {
    const auto axis = static_cast<std::size_t>(emitter.selectedAxis);
    return axis < axes.size() ? axis : 0;
  }
  bool operator==(const EmitterPageState&) const = default;
};

/// Sets the kind and cuts a size that is an angle no more to 100, the most of a
/// section. Unknown kinds change nothing.
void chooseEmitterKind(EmitterPageState& state, EmitterKind kind);

/// Back to no step at all, and on the x axis to a position step of 10.
void resetDuplicateAxis(DuplicateAxis& values, std::size_t axis);

/// "Total Emitter Count = 0" with the figure of the settings.
[[nodiscard]] std::string emitterCountText(const EmitterSettings& emitter);

/// What a shape shows on the page. The page's own axis stays when a shape is
/// loaded, so it is handed in.
[[nodiscard]] EmitterPageState emitterPageOf(const ShapeRecord& shape, std::int32_t selectedAxis);

/// The page's values in the shape. A step that the page cannot show exactly (a
/// fraction from a file) stays as it is while its control was not moved.
void storeEmitterPage(const EmitterPageState& page, ShapeRecord& shape);

}  // namespace pv
