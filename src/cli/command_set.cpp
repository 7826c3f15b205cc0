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

struct SetOptions {
  std::string input;
  std::string output;
  std::vector<std::string> assignments;
};

void editShape(const SetOptions& options, CliRun& run) {
  if (!checkOutputName(options.output, ".j3d", run)) {
    return;
  }
  auto shape = loadShape(options.input);
  if (!shape) {
    run.fail(shape.error());
    return;
  }
  if (!applyAssignments(options.assignments, shape.value(), run)) {
    return;
  }
  if (const auto saved = saveFile(options.output, encodeShapeFile(shape.value())); !saved) {
    run.fail(saved.error());
  }
}

}  // namespace

void addSetCommand(CLI::App& app, CliRun& run) {
  CLI::App& command =
      addCommand(app, "set", "Copies a shape file with some fields changed",
                 "  pvortex set grid.j3d -o twisted.j3d modifiers.twist.y=90\n"
                 "  pvortex set vase.j3d -o vase.j3d path=profile.j2d emitter.copies=3");
  auto options = std::make_shared<SetOptions>();
  command.add_option("IN", options->input, "Shape file to read (.j3d)")
      ->type_name("FILE")
      ->required();
  command.add_option("-o,--output", options->output, "Shape file to write (.j3d), may be IN")
      ->type_name("FILE")
      ->required();
  command.add_option("KEY=VALUE", options->assignments, "Fields to change")->type_name("");
  addListKeysFlag(command);
  command.callback([options, &run] { editShape(*options, run); });
}

}  // namespace pv
