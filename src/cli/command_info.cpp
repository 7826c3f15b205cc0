#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

#include "cli/commands.h"
#include "cli/documents.h"
#include "shape/shape_fields.h"
#include "util/number_text.h"

namespace pv {

namespace {

using Json = nlohmann::ordered_json;

using DocumentLoader = Result<LoadedDocument> (*)(const std::string& name);

struct InfoOptions {
  DocumentLoader load = nullptr;
  std::vector<std::string> files;
  bool json = false;
};

void writePath(const PathRecord& path, std::ostream& out) {
  out << "path.count = " << std::to_string(path.count) << '\n';
  std::size_t index = 0;
  for (const Vec3& point : path.inUse()) {
    out << "path.points." << std::to_string(index++) << " = " << numberText(point.x) << ' '
        << numberText(point.y) << ' ' << numberText(point.z) << '\n';
  }
}

void writeShape(const ShapeRecord& shape, std::ostream& out) {
  for (const ShapeField& field : shapeFields()) {
    out << field.key << " = " << fieldText(field, shape) << '\n';
  }
  writePath(shape.path, out);
  out << "totalEmitterCount = " << std::to_string(totalEmitterCount(shape.emitter)) << '\n';
}

// The double whose shortest text is the float's nine digits. JSON has no words
// for what is not finite, so that becomes a string.
Json jsonNumber(float value) {
  const std::string text = numberText(value);
  if (!std::isfinite(value)) {
    return text;
  }
  double number = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

Json jsonValue(const ShapeField& field, const ShapeRecord& shape) {
  const double number = fieldNumber(field, shape);
  if (field.type == FieldType::Float) {
    return jsonNumber(static_cast<float>(number));
  }
  if (field.type == FieldType::Name && number >= 0 &&
      number < static_cast<double>(field.names.size())) {
    return fieldText(field, shape);
  }
  return static_cast<std::int64_t>(number);
}

Json jsonPath(const PathRecord& path) {
  Json points = Json::array();
  for (const Vec3& point : path.inUse()) {
    points.push_back({jsonNumber(point.x), jsonNumber(point.y), jsonNumber(point.z)});
  }
  return {{"count", path.count}, {"points", points}};
}

void addTo(Json& entry, const ShapeRecord& shape) {
  entry["type"] = "shape";
  for (const ShapeField& field : shapeFields()) {
    std::string pointer = "/" + field.key;
    std::replace(pointer.begin(), pointer.end(), '.', '/');
    entry[Json::json_pointer(pointer)] = jsonValue(field, shape);
  }
  entry["path"] = jsonPath(shape.path);
  entry["totalEmitterCount"] = totalEmitterCount(shape.emitter);
}

void addTo(Json& entry, const PathRecord& path) {
  entry["type"] = "path";
  entry["path"] = jsonPath(path);
}

void writeText(const std::string& file, const LoadedDocument& document, std::ostream& out) {
  if (const auto* shape = std::get_if<ShapeRecord>(&document.content)) {
    out << oneLine(file) << ": shape\n";
    writeShape(*shape, out);
  } else {
    out << oneLine(file) << ": path\n";
    writePath(std::get<PathRecord>(document.content), out);
  }
}

void showInfo(const InfoOptions& options, CliRun& run) {
  Json entries = Json::array();
  for (const std::string& file : options.files) {
    const auto document = options.load(file);
    if (!document) {
      run.fail(document.error());
    } else if (options.json) {
      Json& entry = entries.emplace_back(Json{{"file", file}});
      std::visit([&entry](const auto& record) { addTo(entry, record); }, document.value().content);
    } else {
      writeText(file, document.value(), run.out);
    }
  }
  if (options.json) {
    constexpr int kIndent = 2;
    // File names need not be valid UTF-8.
    run.out << entries.dump(kIndent, ' ', false, Json::error_handler_t::replace) << '\n';
  }
}

Result<LoadedDocument> loadPathDocument(const std::string& name) {
  const auto path = loadPath(name);
  if (!path) {
    return path.error();
  }
  return LoadedDocument{path.value()};
}

void addInfoOptions(CLI::App& command, DocumentLoader load, const std::string& files, CliRun& run) {
  auto options = std::make_shared<InfoOptions>();
  options->load = load;
  command.add_option("FILE", options->files, files)->type_name("")->required();
  command.add_flag("--json", options->json, "One JSON array with an object for each file");
  command.callback([options, &run] { showInfo(*options, run); });
}

}  // namespace

void addInfoCommand(CLI::App& app, CliRun& run) {
  CLI::App& command = addCommand(app, "info", "Prints every field of shape and path files",
                                 "  pvortex info grid.j3d profile.j2d\n"
                                 "  pvortex info --json grid.j3d | jq '.[0].emitter.kind'");
  addInfoOptions(command, loadDocument, "Shape (.j3d) and path (.j2d) files", run);
}

void addPathInfoCommand(CLI::App& app, CliRun& run) {
  CLI::App& command = addCommand(app, "info", "Prints the points of path files",
                                 "  pvortex path info profile.j2d\n"
                                 "  pvortex path info --json profile.j2d | jq '.[0].path.count'");
  addInfoOptions(command, loadPathDocument, "Path files (.j2d)", run);
}

}  // namespace pv
