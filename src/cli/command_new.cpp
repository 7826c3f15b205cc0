#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "cli/assignments.h"
#include "cli/commands.h"
#include "cli/documents.h"
#include "shape/shape_file.h"

namespace pv {

namespace {

struct NewOptions {
  std::string output;
  std::vector<std::string> assignments;
};

void makeShape(const NewOptions& options, CliRun& run) {
  ShapeRecord shape;
  if (!checkOutputName(options.output, ".j3d", run) ||
      !applyAssignments(options.assignments, shape, run)) {
    return;
  }
  if (const auto saved = saveFile(options.output, encodeShapeFile(shape)); !saved) {
    run.fail(saved.error());
  }
}

}  // namespace

void addNewCommand(CLI::App& app, CliRun& run) {
  CLI::App& command =
      addCommand(app, "new", "Makes a shape file: a fresh shape with the given fields",
                 "  pvortex new -o grid.j3d emitter.kind=grid emitter.horizontalAmount=40\n"
                 "  pvortex new -o vase.j3d emitter.kind=sweep emitter.verticalSize=360 "
                 "path=profile.j2d");
  auto options = std::make_shared<NewOptions>();
  command.add_option("-o,--output", options->output, "Shape file to write (.j3d)")
      ->type_name("FILE")
      ->required();
  command.add_option("KEY=VALUE", options->assignments, "Fields that differ from a fresh shape")
      ->type_name("");
  addListKeysFlag(command);
  command.callback([options, &run] { makeShape(*options, run); });
}

}  // namespace pv
