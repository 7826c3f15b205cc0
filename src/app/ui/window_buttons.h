#pragma once

#include <array>

#include "shape/modifier_kind.h"
#include "view3d/view_camera.h"

namespace pv {

/// What a button of the window says, everywhere where it says something.
struct ButtonText {
  const char* caption;
  const char* name;  ///< for screen readers: the caption may need its group's title
  const char* key;   ///< portable key sequence, or ""
  const char* help;  ///< first line the title; lines end with \n
};

struct ModifierButton {
  ModifierKind kind;
  ButtonText text;
};

extern const ButtonText kOpenButton;
extern const ButtonText kSaveButton;
extern const std::array<ButtonText, 4> kViewButtons;    ///< by ViewMode
extern const std::array<ButtonText, 3> kCameraButtons;  ///< by CameraTool
extern const ButtonText kCameraResetButton;
extern const ButtonText kGridButton;
extern const ButtonText kLinesButton;
/// In the order of the page: three of the vertices, nine deformations, three of
/// the whole shape.
extern const std::array<ModifierButton, kModifierCount> kModifierButtons;
inline constexpr std::size_t kFirstDeformation = 3;
inline constexpr std::size_t kFirstShapeModifier = 12;
extern const ButtonText kResetButton;
extern const ButtonText kResetAllButton;

}  // namespace pv
