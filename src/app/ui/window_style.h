#pragma once

#include <QColor>

namespace pv {

inline constexpr QRgb kDialogColour = 0xFF323232;
inline constexpr QRgb kPanelColour = 0xFF464646;
inline constexpr QRgb kTitleColour = 0xFF1E1E1E;
inline constexpr QRgb kTextColour = 0xFFAAAAAA;
inline constexpr QRgb kSelectionColour = 0xFFF07800;

/// Gives the application its dark look, the toolkit's own dialogs included,
/// whatever the desktop's theme is.
void applyDarkStyle();

}  // namespace pv
