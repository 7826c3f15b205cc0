#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/png_file.h"
#include "cli/shape_mesh_build.h"
#include "util/ascii.h"
#include "util/number_text.h"

namespace pv {

namespace {

constexpr std::int32_t kMinSide = 2;  // what the view's projector accepts
constexpr std::int32_t kMaxSide = 3999;

constexpr std::array<std::string_view, 4> kViewNames{"3d", "top", "front", "side"};

// One row a number of the camera.
struct CameraOption {
  const char* name;
  float ViewCamera::*member;
  float low;
  float high;
  const char* help;
};
constexpr std::array kCameraOptions{
    CameraOption{"--yaw", &ViewCamera::yaw, 0.0F, 360.0F, "Degrees, 0 to 360 [270]"},
    CameraOption{"--pitch", &ViewCamera::pitch, kMinCameraPitch, kMaxCameraPitch,
                 "Degrees, -89 to 89 [0]"},
    CameraOption{"--roll", &ViewCamera::roll, kMinCameraRoll, kMaxCameraRoll,
                 "Degrees, -179 to 179 [0]"},
    CameraOption{"--distance", &ViewCamera::distance, kMinCameraDistance, kMaxCameraDistance,
                 "Of the eye from the centre, 1.2 to 4 [1.2]"},
};

struct RenderOptions {
  std::string input;
  std::string output;
  std::string view = "3d";
  std::string size = "640x480";
  std::array<std::optional<std::string>, kCameraOptions.size()> camera;  ///< else its default
  bool noGrid = false;
  bool dots = false;
  std::optional<std::string> modifier;
};

bool applySize(const std::string& text, ShapeView& view, CliRun& run) {
  const std::size_t cross = std::min(text.find_first_of("xX"), text.size());
  const auto width = parseNumber<std::int32_t>(std::string_view(text).substr(0, cross));
  const auto height =
      parseNumber<std::int32_t>(std::string_view(text).substr(std::min(cross + 1, text.size())));
  const auto fits = [](const Result<std::int32_t>& side) {
    return side && side.value() >= kMinSide && side.value() <= kMaxSide;
  };
  if (!fits(width) || !fits(height)) {
    run.fail(ExitStatus::Usage, "--size: '" + text + "' is not WIDTHxHEIGHT with sides of " +
                                    std::to_string(kMinSide) + " to " + std::to_string(kMaxSide) +
                                    " pixels");
    return false;
  }
  view.setSize(width.value(), height.value());
  return true;
}

bool applyCamera(const RenderOptions& options, ShapeView& view, CliRun& run) {
  ViewCamera camera;
  for (std::size_t i = 0; i < kCameraOptions.size(); ++i) {
    const CameraOption& row = kCameraOptions[i];
    if (!options.camera[i]) {
      continue;
    }
    const std::string& text = *options.camera[i];
    const auto number = parseNumber<float>(text);
    if (!number) {
      run.fail(ExitStatus::Usage, std::string(row.name) + ": " + number.error().reason);
      return false;
    }
    if (number.value() < row.low || number.value() > row.high) {
      run.fail(ExitStatus::Usage, std::string(row.name) + ": " + text + " is outside " +
                                      shortNumberText(row.low) + " to " +
                                      shortNumberText(row.high));
      return false;
    }
    camera.*row.member = number.value();
  }
  view.setCamera(camera);
  return true;
}

bool applyModifier(const std::string& name, ShapeView& view, CliRun& run) {
  std::string key = name;
  std::erase(key, ' ');
  const ModifierKind kind = modifierByKey(key);
  if (!isModifier(kind)) {
    std::string all;
    for (const auto& row : kModifiers) {
      all += (all.empty() ? "" : ", ") + std::string(row.key);
    }
    run.fail(ExitStatus::Usage, "--modifier: '" + name + "' is none of " + all);
    return false;
  }
  view.SelectModifier(kind);
  return true;
}

bool applyOptions(const RenderOptions& options, ShapeView& view, CliRun& run) {
  const auto found = std::find_if(
      kViewNames.begin(), kViewNames.end(),
      [&options](std::string_view name) { return equalIgnoringCase(name, options.view); });
  if (found == kViewNames.end()) {
    run.fail(ExitStatus::Usage, "--view: '" + options.view + "' is none of 3d, top, front, side");
    return false;
  }
  view.setViewMode(static_cast<ViewMode>(found - kViewNames.begin()));
  view.setShowGrid(!options.noGrid);
  view.setShowLines(!options.dots);
  return applySize(options.size, view, run) && applyCamera(options, view, run) &&
         (!options.modifier || applyModifier(*options.modifier, view, run));
}

void renderShape(const RenderOptions& options, CliRun& run) {
  ShapeView view;
  if (!checkOutputName(options.output, ".png", run) || !applyOptions(options, view, run)) {
    return;
  }
  const auto shape = loadShape(options.input);
  if (!shape) {
    run.fail(shape.error());
    return;
  }
  if (!giveShape(view, shape.value(), options.input, run)) {
    return;
  }
  const auto frame = view.drawFrame();
  if (!checkMesh(view, options.input, run)) {
    return;
  }
  const auto png = encodePng(frame, view.width(), view.height());
  const auto saved = png ? saveFile(options.output, png.value()) : Status(png.error());
  if (!saved) {
    run.fail(saved.error());
  }
}

}  // namespace

void addRenderCommand(CLI::App& app, CliRun& run) {
  CLI::App& command =
      addCommand(app, "render", "Draws a shape as the designer's window shows it (PNG)",
                 "  pvortex render grid.j3d -o grid.png --yaw 300 --pitch 20\n"
                 "  pvortex render grid.j3d -o top.png --view top --size 1280x960 --no-grid\n"
                 "  pvortex render grid.j3d -o twist.png --modifier twist");
  auto options = std::make_shared<RenderOptions>();
  command.add_option("IN", options->input, "Shape file to read (.j3d)")
      ->type_name("FILE")
      ->required();
  command.add_option("-o,--output", options->output, "Picture to write (.png)")
      ->type_name("FILE")
      ->required();
  command.add_option("--view", options->view, "3d, top, front or side")
      ->type_name("NAME")
      ->capture_default_str();
  command.add_option("--size", options->size, "WIDTHxHEIGHT in pixels, sides of 2 to 3999")
      ->type_name("WxH")
      ->capture_default_str();
  for (std::size_t i = 0; i < kCameraOptions.size(); ++i) {
    command.add_option(kCameraOptions[i].name, options->camera[i], kCameraOptions[i].help)
        ->type_name("NUMBER");
  }
  command.add_flag("--no-grid", options->noGrid, "Leave out grid, axes and labels");
  command.add_flag("--dots", options->dots, "Draw vertices instead of lines");
  command
      .add_option("--modifier", options->modifier,
                  "Show the handles of that modifier, as in vertexMove")
      ->type_name("NAME");
  command.callback([options, &run] { renderShape(*options, run); });
}

}  // namespace pv
