#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include <QRect>
#include <QSize>

#include "ui/dialog_units.h"
#include "ui/image_button.h"
#include "ui/page_edges.h"

namespace pv {

enum class Tab3dAction : std::uint8_t {
  View,  ///< `which` is a ViewMode
  ToggleGrid,
  ToggleLines,
  Tool,  ///< `which` is a CameraTool
  ResetCamera,
  ResetAll,
  Reset,
  Modifier,  ///< `which` is a ModifierKind
};

/// One button of the 3D page, in dialog units of the page at its basic size.
struct Tab3dButton {
  int id = 0;
  DialogRect rect;
  PageEdge edge = PageEdge::TopLeft;
  ImageButton::Joint joint = ImageButton::Joint::Single;
  Tab3dAction action = Tab3dAction::View;
  int which = 0;
  const char* image = nullptr;
  const char* help = nullptr;
};

inline constexpr std::size_t kTab3dButtonCount = 27;
/// In reading order: down the left column, then along the bottom row.
extern const std::array<Tab3dButton, kTab3dButtonCount> kTab3dButtons;

/// The basic size of the page and the place of the view in it, in dialog units.
inline constexpr DialogRect kTab3dPage{0, 0, 409, 345};
inline constexpr DialogRect kTab3dView{30, 0, 378, 312};

/// Places on a page of this size in pixels of 96 dpi. On a page larger than its
/// basic size the view grows; on a smaller one everything stays where it is.
[[nodiscard]] QRect placeOf(const Tab3dButton& button, QSize page);
[[nodiscard]] QRect placeOfView(QSize page);

}  // namespace pv
