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

enum class EditPathAction : std::uint8_t {
  View,  ///< `which` is a PathAxisView
  Tool,  ///< `which` is a PathTool
  DeletePath,
  ResetZoom,
  ToggleSnap,
  SnapDivisions,  ///< `which` is cells per path unit
  Undo,
  Redo,
  Use,
  Cancel,
};

/// One button of the path editor, in dialog units of the page at its basic size.
/// Without an image it shows its label. The help of undo and redo has room for the
/// name of the step.
struct EditPathButton {
  int id = 0;
  const char* label = nullptr;
  DialogRect rect;
  PageEdge edge = PageEdge::TopLeft;
  ImageButton::Joint joint = ImageButton::Joint::Single;
  EditPathAction action = EditPathAction::Tool;
  int which = 0;
  const char* image = nullptr;
  const char* help = nullptr;
};

inline constexpr std::size_t kEditPathButtonCount = 24;
/// In reading order: down the left column, then along the bottom row.
extern const std::array<EditPathButton, kEditPathButtonCount> kEditPathButtons;

/// The basic size of the page and the place of the view in it, in dialog units.
inline constexpr DialogRect kEditPathPage{0, 0, 408, 341};
inline constexpr DialogRect kEditPathView{30, 0, 378, 312};

/// Places on a page of this size in pixels of 96 dpi. On a page larger than its
/// basic size the view grows; on a smaller one everything stays where it is.
[[nodiscard]] QRect placeOf(const EditPathButton& button, QSize page);
[[nodiscard]] QRect placeOfPathView(QSize page);

}  // namespace pv
