// path import and path export: paths from and to SVG drawings.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/svg_reader.h"
#include "path/outline_path.h"
#include "path/path_file.h"
#include "path/path_svg.h"
#include "util/files.h"
#include "util/utf8_path.h"

namespace pv {

namespace {

struct PathImportOptions {
  std::string input;
  std::string output;
  std::optional<std::int32_t> points;
  bool join = false;
};

struct PathExportOptions {
  std::string input;
  std::string output;
  std::string view = "front";
};

Result<SvgDrawing> loadSvg(const std::string& name) {
  // One byte more than is accepted, to see whether there is more.
  const auto bytes = readFile(pathFromUtf8(name), kMaxSvgBytes + 1);
  auto drawing = bytes ? readSvg(bytes.value()) : bytes.error();
  if (!drawing) {
    Error error = drawing.error();
    error.file = name;
    return error;
  }
  return drawing;
}

/// One outline out of all, and a note on how where there was a choice.
Outline chooseOutline(std::vector<Outline> outlines, const PathImportOptions& options,
                      CliRun& run) {
  outlines = joinTouching(std::move(outlines));
  const std::string found = std::to_string(outlines.size()) + " separate lines were found; ";
  if (outlines.size() == 1) {
    return outlines.front();
  }
  if (options.join) {
    run.note(options.input, found + "all were joined in document order");
    return joinAll(std::move(outlines));
  }
  const auto longest = std::max_element(
      outlines.begin(), outlines.end(),
      [](const Outline& a, const Outline& b) { return roughLength(a) < roughLength(b); });
  run.note(options.input, found + "the longest, number " +
                              std::to_string(longest - outlines.begin() + 1) +
                              ", was taken (--join takes all)");
  return std::move(*longest);
}

void importPath(const PathImportOptions& options, CliRun& run) {
  if (!checkOutputName(options.output, ".j2d", run)) {
    return;
  }
  auto drawing = loadSvg(options.input);
  if (!drawing) {
    run.fail(drawing.error());
    return;
  }
  if (const std::size_t leftOut = drawing.value().leftOut; leftOut > 0) {
    run.note(options.input,
             "texts, images and copies (use) are left out: " + std::to_string(leftOut));
  }
  if (drawing.value().outlines.empty()) {
    run.fail(ExitStatus::BadData, options.input + ": the drawing has no line, shape or path");
    return;
  }
  const auto fitted =
      fitOutline(chooseOutline(std::move(drawing.value().outlines), options, run), options.points);
  if (!fitted) {
    run.fail(ExitStatus::BadData, options.input + ": " + fitted.error().message());
    return;
  }
  const PathRecord& path = fitted.value().path;
  if (fitted.value().cornersLost) {
    run.note(options.input, "the corners do not fit into " + std::to_string(path.count) +
                                " points, which are evenly spaced instead");
  }
  if (const auto saved = saveFile(options.output, encodePathFile(path)); !saved) {
    run.fail(saved.error());
  }
}

PathAxisView pathViewOf(const std::string& name) {
  if (name == "side") {
    return PathAxisView::Side;
  }
  return name == "top" ? PathAxisView::Top : PathAxisView::Front;
}

void exportPath(const PathExportOptions& options, CliRun& run) {
  if (!checkOutputName(options.output, ".svg", run)) {
    return;
  }
  const auto path = loadPath(options.input);
  if (!path) {
    run.fail(path.error());
    return;
  }
  const auto text = pathSvg(path.value(), pathViewOf(options.view));
  if (!text) {
    run.fail(ExitStatus::BadData, options.input + ": " + text.error().message());
    return;
  }
  const auto saved = saveFile(options.output, std::as_bytes(std::span(text.value())));
  if (!saved) {
    run.fail(saved.error());
  }
}

}  // namespace

void addPathImportCommand(CLI::App& app, CliRun& run) {
  CLI::App& command =
      addCommand(app, "import",
                 "Makes a path file from an SVG drawing: lines, polylines, polygons, rectangles,\n"
                 "circles, ellipses and paths, with their transformations.\n\n"
                 "The drawing is fitted into -1 to 1 of the front view, centred, its proportions\n"
                 "kept. Straight lines keep their corners as long as these fit into the points;\n"
                 "curves become points at equal distances along them. Lines that begin where the\n"
                 "last one ended are one line. If several are left, the longest is taken.",
                 "  pvortex path import profile.svg -o profile.j2d\n"
                 "  pvortex path import logo.svg -o logo.j2d --points 200 --join");
  auto options = std::make_shared<PathImportOptions>();
  command.add_option("IN", options->input, "SVG file to read, 16 MiB at most")
      ->type_name("FILE")
      ->required();
  command.add_option("-o,--output", options->output, "Path file to write (.j2d)")
      ->type_name("FILE")
      ->required();
  command
      .add_option("--points", options->points,
                  "2 to 512: points in all where there are curves, and the most corners\n"
                  "otherwise. Without it curves get as many as they need")
      ->type_name("N")
      ->check(CLI::Range(2, kMaxPathPoints).description(""));
  command.add_flag("--join", options->join,
                   "Join all lines in document order instead of taking the longest");
  command.callback([options, &run] { importPath(*options, run); });
}

void addPathExportCommand(CLI::App& app, CliRun& run) {
  CLI::App& command = addCommand(app, "export", "Writes a path as an SVG drawing of one flat view",
                                 "  pvortex path export profile.j2d -o profile.svg\n"
                                 "  pvortex path export knot.j2d -o knot.svg --view top");
  auto options = std::make_shared<PathExportOptions>();
  command.add_option("IN", options->input, "Path file to read (.j2d)")
      ->type_name("FILE")
      ->required();
  command.add_option("-o,--output", options->output, "Drawing to write (.svg)")
      ->type_name("FILE")
      ->required();
  command.add_option("--view", options->view, "front, side or top")
      ->type_name("NAME")
      ->check(CLI::IsMember({"front", "side", "top"}).description(""))
      ->capture_default_str();
  command.callback([options, &run] { exportPath(*options, run); });
}

}  // namespace pv
