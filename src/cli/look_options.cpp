#include "cli/look_options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <optional>
#include <string_view>

#include "util/ascii.h"
#include "util/number_text.h"

namespace pv {

namespace {

// In the order of ViewMode; the path's axes are those that the flat views show.
struct ViewRow {
  std::string_view name;
  std::optional<PathAxisView> axes;
};
constexpr std::array kViews{
    ViewRow{"3d", {}},
    ViewRow{"top", PathAxisView::Top},
    ViewRow{"front", PathAxisView::Front},
    ViewRow{"side", PathAxisView::Side},
};

// One row a number of the camera.
struct CameraOption {
  const char* name;
  float ViewCamera::*member;
  float low;
  float high;
  const char* help;
};
constexpr std::array<CameraOption, kCameraOptionCount> kCameraOptions{{
    {"--yaw", &ViewCamera::yaw, 0.0F, 360.0F, "Degrees"},
    {"--pitch", &ViewCamera::pitch, kMinCameraPitch, kMaxCameraPitch, "Degrees"},
    {"--roll", &ViewCamera::roll, kMinCameraRoll, kMaxCameraRoll, "Degrees"},
    {"--distance", &ViewCamera::distance, kMinCameraDistance, kMaxCameraDistance,
     "Of the eye from the centre"},
}};

std::string rangeText(const CameraOption& row) {
  return shortNumberText(row.low) + " to " + shortNumberText(row.high);
}

// None after a report.
const ViewRow* viewNamed(const std::string& name, CliRun& run) {
  const auto found = std::find_if(kViews.begin(), kViews.end(), [&name](const ViewRow& row) {
    return equalIgnoringCase(row.name, name);
  });
  if (found != kViews.end()) {
    return &*found;
  }
  run.fail(ExitStatus::Usage, "--view: '" + name + "' is none of 3d, top, front, side");
  return nullptr;
}

bool applyNumber(const CameraOption& row, const std::string& text, ViewCamera& camera,
                 CliRun& run) {
  const auto number = parseNumber<float>(text);
  if (!number) {
    run.fail(ExitStatus::Usage, std::string(row.name) + ": " + number.error().reason);
    return false;
  }
  if (number.value() < row.low || number.value() > row.high) {
    run.fail(ExitStatus::Usage,
             std::string(row.name) + ": " + text + " is outside " + rangeText(row));
    return false;
  }
  camera.*row.member = number.value();
  return true;
}

}  // namespace

void addLookOptions(CLI::App& command, LookOptions& options, const ShapeLook& defaults) {
  const auto shown = static_cast<std::size_t>(defaults.mode);
  command
      .add_option("--view", options.view,
                  "3d, top, front or side [" + std::string(kViews.at(shown).name) + "]")
      ->type_name("NAME");
  for (std::size_t i = 0; i < kCameraOptions.size(); ++i) {
    const CameraOption& row = kCameraOptions[i];
    const std::string help = std::string(row.help) + ", " + rangeText(row) + " [" +
                             shortNumberText(defaults.camera.*row.member) + "]";
    command.add_option(row.name, options.camera[i], help)->type_name("NUMBER");
  }
}

bool applyLook(const LookOptions& options, ShapeLook& look, CliRun& run) {
  if (options.view) {
    const ViewRow* view = viewNamed(*options.view, run);
    if (view == nullptr) {
      return false;
    }
    look.mode = static_cast<ViewMode>(view - kViews.data());
  }
  for (std::size_t i = 0; i < kCameraOptions.size(); ++i) {
    const auto& text = options.camera[i];
    if (text && !applyNumber(kCameraOptions[i], *text, look.camera, run)) {
      return false;
    }
  }
  return true;
}

bool applyLook(const LookOptions& options, PathViewport& look, CliRun& run) {
  for (std::size_t i = 0; i < kCameraOptions.size(); ++i) {
    if (options.camera[i]) {
      run.fail(ExitStatus::Usage,
               std::string(kCameraOptions[i].name) + " is for shapes; a path has flat views only");
      return false;
    }
  }
  const ViewRow* view = options.view ? viewNamed(*options.view, run) : nullptr;
  if (options.view && (view == nullptr || !view->axes)) {
    if (view != nullptr) {
      run.fail(ExitStatus::Usage, "--view: a path is seen from top, front or side");
    }
    return false;
  }
  look.axes = view != nullptr ? *view->axes : look.axes;
  return true;
}

}  // namespace pv
