#pragma once

#include <string>
#include <string_view>

#include <QSize>

class QWidget;

namespace pv {

/// Where the window's size and place are kept between runs.
inline constexpr std::string_view kWindowPlaceValue = "DesignerWindow";

/// "x y width height" of the window as it is when not maximised, and a 1 behind
/// it when it is.
[[nodiscard]] std::string windowPlace(const QWidget& window);

/// Puts the window where the text says, moved and shrunk until it lies on a
/// screen. A text that says nothing useful gives the usual size.
void placeWindow(QWidget& window, const std::string& text, QSize usual);

}  // namespace pv
