#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "shape/emitter_page.h"

namespace pv {

/// A button of the emitter page with its image, or its caption where it has none.
struct EmitterButton {
  int id = 0;
  const char* face = nullptr;
  const char* help = nullptr;
};

/// A value control with what it shows before a kind relabels it.
struct EmitterSlider {
  int id = 0;
  const char* label = nullptr;
  PageRange range;
  PageImages images;
  std::int32_t& (*value)(EmitterPageState&) = nullptr;
  const char* help = nullptr;
};

/// `name` tells equal captions apart for assistive tools.
struct EmitterCheck {
  int id = 0;
  const char* caption = nullptr;
  const char* name = nullptr;
  bool (*isSet)(const EmitterPageState&) = nullptr;
  void (*set)(EmitterPageState&, bool) = nullptr;
  const char* help = nullptr;
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
