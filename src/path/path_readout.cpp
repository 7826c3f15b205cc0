#include "path/path_readout.h"

#include <charconv>
#include <cmath>

#include "path/path_record.h"

namespace pv {
namespace {

constexpr std::string_view kGap = "   ";
constexpr std::string_view kMinus = "\xE2\x88\x92";  // U+2212, as wide as a digit

constexpr char axisName(int axis) {
  return static_cast<char>('X' + axis);
}

PathViewport axesOnly(PathAxisView axes) {
  PathViewport view;
  view.axes = axes;
  return view;
}

/// Three decimals, a point in every locale, no negative zero.
std::string coordinateText(float value) {
  constexpr float kThousandths = 1000.0F;
  constexpr float kLimit = 999999.0F;  // beyond any view
  const float shown = std::round(std::clamp(value, -kLimit, kLimit) * kThousandths) / kThousandths;
  char digits[24];
  const auto end =
      std::to_chars(digits, digits + sizeof(digits), std::abs(shown), std::chars_format::fixed, 3);
  return (shown < 0.0F ? std::string(kMinus) : std::string()) + std::string(digits, end.ptr);
}

}  // namespace

char pathHorizontalAxisName(PathAxisView axes) {
  return axisName(axesOnly(axes).horizontalAxis());
}

char pathVerticalAxisName(PathAxisView axes) {
  return axisName(axesOnly(axes).verticalAxis());
}

std::string pathReadoutText(const PathReadout& readout) {
  std::string text;
  if (readout.pointer) {
    text += pathHorizontalAxisName(readout.axes);
    text += " " + coordinateText(readout.pointer->across) + "  ";
    text += pathVerticalAxisName(readout.axes);
    text += " " + coordinateText(readout.pointer->up);
    text += kGap;
  }
  text += std::to_string(readout.points) + " of " + std::to_string(kMaxPathPoints) + " points";
  text += kGap;
  text += std::to_string(readout.selected) + " selected";
  text += kGap;
  text += "Zoom " + std::to_string(std::lround(readout.zoom * 100.0F)) + " %";
  return text;
}

std::string pathHintText(const PathReadout& readout) {
  return std::string(pathToolTraits(readout.tool).hint);
}

}  // namespace pv
