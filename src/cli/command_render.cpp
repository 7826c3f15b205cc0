#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/look_options.h"
#include "cli/png_file.h"
#include "cli/shape_mesh_build.h"
#include "util/number_text.h"

namespace pv {

namespace {

constexpr std::int32_t kMinSide = 2;  // what the view's projector accepts
constexpr std::int32_t kMaxSide = 3999;

struct RenderOptions {
  std::string input;
  std::string output;
  LookOptions look;
  std::string size = "640x480";
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
  ShapeLook look;
  if (!applyLook(options.look, look, run)) {
    return false;
  }
  view.setViewMode(look.mode);
  view.setCamera(look.camera);
  view.setShowGrid(!options.noGrid);
  view.setShowLines(!options.dots);
  return applySize(options.size, view, run) &&
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
  if (!checkFrame(view, options.input, run)) {
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
  addLookOptions(command, options->look, ShapeLook{});
  command.add_option("--size", options->size, "WIDTHxHEIGHT in pixels, sides of 2 to 3999")
      ->type_name("WxH")
      ->capture_default_str();
  command.add_flag("--no-grid", options->noGrid, "Leave out grid, axes and labels");
  command.add_flag("--dots", options->dots, "Draw vertices instead of lines");
  command
      .add_option("--modifier", options->modifier,
                  "Show the handles of that modifier, as in vertexMove")
      ->type_name("NAME");
  command.callback([options, &run] { renderShape(*options, run); });
}

}  // namespace pv
