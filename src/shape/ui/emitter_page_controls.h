#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "shape/emitter_page.h"

namespace pv {

/// A button of the emitter page with its image, or its caption where it has none.
struct EmitterButton {
  int id;
  const char* face;
  const char* help;
};

/// A value control with what it shows before a kind relabels it.
struct EmitterSlider {
  int id;
  const char* label;
  PageRange range;
  PageImages images;
  std::int32_t& (*value)(EmitterPageState&);
  const char* help;
};

/// `name` tells equal captions apart for assistive tools.
struct EmitterCheck {
  int id;
  const char* caption;
  const char* name;
  bool (*isSet)(const EmitterPageState&);
  void (*set)(EmitterPageState&, bool);
  const char* help;
};

/// Places in kEmitterSliders and kEmitterChecks, in reading order.
enum class SliderAt : std::uint8_t {
  HorizontalAmount,
  HorizontalSize,
  HorizontalEnd,
  VerticalAmount,
  VerticalSize,
  Copies,
  Position,
  Rotation,
  Scale
};
enum class CheckAt : std::uint8_t {
  HorizontalCentre,
  VerticalCentre,
  ModifiersGlobally,
  WorldAxis
};
inline constexpr std::size_t kEmitterSliderCount = 9;
inline constexpr std::size_t kEmitterCheckCount = 4;

/// By kind, axis and mapping; Load, Save and Edit Path stand in this order.
extern const std::array<EmitterButton, 5> kKindButtons;
extern const std::array<EmitterButton, 3> kFileButtons;
extern const std::array<EmitterButton, 3> kAxisButtons;
extern const EmitterButton kAxisResetButton;
extern const std::array<EmitterButton, 3> kMappingButtons;
extern const std::array<EmitterSlider, kEmitterSliderCount> kEmitterSliders;
extern const std::array<EmitterCheck, kEmitterCheckCount> kEmitterChecks;

inline constexpr const char* kCountImage = "/bin/program/emitter-count.png";

}  // namespace pv
