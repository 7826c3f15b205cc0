#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/commands.h"
#include "cli/documents.h"
#include "path/path_file.h"
#include "util/number_text.h"

namespace pv {

namespace {

struct PathOptions {
  std::string output;
  std::vector<std::string> points;
};

// "0.5,-1,0": three finite numbers.
std::optional<Vec3> pointOf(std::string_view text) {
  Vec3 point;
  for (int axis = 0; axis < 3; ++axis) {
    const auto comma = text.find(',');
    const bool last = axis == 2;
    if ((comma == std::string_view::npos) != last) {
      return std::nullopt;
    }
    const auto number = parseNumber<float>(text.substr(0, comma));
    if (!number) {
      return std::nullopt;
    }
    point.axis(axis) = number.value();
    text.remove_prefix(last ? text.size() : comma + 1);
  }
  return point;
}

void makePath(const PathOptions& options, CliRun& run) {
  if (!checkOutputName(options.output, ".j2d", run)) {
    return;
  }
  PathRecord path;
  if (options.points.size() > path.points.size()) {
    run.fail(ExitStatus::Usage, "a path has 512 points at most, and " +
                                    std::to_string(options.points.size()) + " were given");
    return;
  }
  for (const std::string& text : options.points) {
    const auto point = pointOf(text);
    if (!point) {
      run.fail(ExitStatus::Usage,
               "'" + oneLine(text) + "' is no point; write three numbers as in 0.5,-1,0");
      return;
    }
    path.points[static_cast<std::size_t>(path.count++)] = *point;
  }
  if (const auto saved = saveFile(options.output, encodePathFile(path)); !saved) {
    run.fail(saved.error());
  }
}

}  // namespace

void addPathCommand(CLI::App& app, CliRun& run) {
  CLI::App& command = addCommand(app, "path", "Makes, prints, imports and exports path files",
                                 "  pvortex path new -o profile.j2d 0.2,-0.5,0 0.4,0,0 0.2,0.5,0\n"
                                 "  pvortex path import profile.svg -o profile.j2d");
  command.require_subcommand(1);
  addPathInfoCommand(command, run);
  CLI::App& make = addCommand(command, "new", "Makes a path file from points",
                              "  pvortex path new -o profile.j2d 0.2,-0.5,0 0.4,0,0 0.2,0.5,0");
  auto options = std::make_shared<PathOptions>();
  make.add_option("-o,--output", options->output, "Path file to write (.j2d)")
      ->type_name("FILE")
      ->required();
  make.add_option("POINT", options->points, "Points X,Y,Z in shape units; 1 is the edge of a view")
      ->type_name("");
  make.callback([options, &run] { makePath(*options, run); });
  addPathImportCommand(command, run);
  addPathExportCommand(command, run);
}

}  // namespace pv
