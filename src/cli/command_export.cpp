#include <CLI/CLI.hpp>
#include <memory>
#include <span>
#include <string>

#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/obj_text.h"
#include "cli/shape_mesh_build.h"

namespace pv {

namespace {

struct ExportOptions {
  std::string input;
  std::string output;
  std::string stage = "final";
};

void exportMesh(const ExportOptions& options, CliRun& run) {
  if (!checkOutputName(options.output, ".obj", run)) {
    return;
  }
  const auto shape = loadShape(options.input);
  if (!shape) {
    run.fail(shape.error());
    return;
  }
  ShapeView view;
  if (!giveShape(view, shape.value(), options.input, run)) {
    return;
  }
  view.updateMesh();
  if (!checkMesh(view, options.input, run)) {
    return;
  }
  const auto text =
      objText(*view.mesh().current(), options.stage == "base" ? MeshStage::Base : MeshStage::Final);
  if (!text) {
    run.fail(exitStatusOf(text.error().kind), options.input + ": " + text.error().message());
    return;
  }
  const auto saved = saveFile(options.output, std::as_bytes(std::span(text.value())));
  if (!saved) {
    run.fail(saved.error());
  }
}

}  // namespace

void addExportCommand(CLI::App& app, CliRun& run) {
  CLI::App& command =
      addCommand(app, "export", "Writes a shape's mesh for other programs (Wavefront OBJ)",
                 "  pvortex export grid.j3d -o grid.obj\n"
                 "  pvortex export grid.j3d -o plain.obj --stage base");
  auto options = std::make_shared<ExportOptions>();
  command.add_option("IN", options->input, "Shape file to read (.j3d)")
      ->type_name("FILE")
      ->required();
  command.add_option("-o,--output", options->output, "Mesh file to write (.obj)")
      ->type_name("FILE")
      ->required();
  command
      .add_option("--stage", options->stage,
                  "base: as generated and duplicated; final: after the modifiers")
      ->type_name("NAME")
      ->check(CLI::IsMember({"base", "final"}).description(""))
      ->capture_default_str();
  command.callback([options, &run] { exportMesh(*options, run); });
}

}  // namespace pv
