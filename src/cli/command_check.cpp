#include <CLI/CLI.hpp>
#include <cmath>
#include <memory>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/shape_mesh_build.h"
#include "shape/shape_fields.h"
#include "shape/shape_file.h"
#include "util/number_text.h"

namespace pv {

namespace {

struct CheckOptions {
  std::vector<std::string> files;
};

// What was found in one file. Notes do not make it a bad one.
struct Findings {
  std::vector<std::string> faults;
  std::vector<std::string> notes;
};

void checkNumber(float value, const std::string& key, std::size_t offset, Findings& findings) {
  if (!std::isfinite(value)) {
    findings.faults.push_back("byte " + std::to_string(offset) + ": " + key + " is " +
                              numberText(value) + ", not a finite number");
  }
}

// `offset` is the byte at which the path begins.
void checkPath(const PathRecord& path, std::size_t offset, Findings& findings) {
  offset += sizeof(path.count);
  std::size_t index = 0;
  for (const Vec3& point : path.inUse()) {
    const std::string key = "path.points." + std::to_string(index++);
    checkNumber(point.x, key + ".x", offset, findings);
    checkNumber(point.y, key + ".y", offset + 4, findings);
    checkNumber(point.z, key + ".z", offset + 8, findings);
    offset += 12;
  }
}

void checkOffered(const ShapeField& field, const ShapeRecord& shape, Findings& findings) {
  const double value = fieldNumber(field, shape);
  const std::string known = field.key + " is " + fieldText(field, shape);
  if (field.type == FieldType::Name) {
    const bool named = value >= 0 && value < static_cast<double>(field.names.size());
    if (!named && field.key != "emitter.kind") {
      findings.notes.push_back(known + ", which names nothing");
    }
    return;
  }
  const auto range = offeredRange(field, shape.emitter.kind);
  if (range && std::isfinite(value) && !range->contains(value)) {
    findings.notes.push_back(known + ", outside the designer's " +
                             numberText(static_cast<float>(range->low)) + ".." +
                             numberText(static_cast<float>(range->high)));
  }
}

void checkContent(const ShapeRecord& shape, Findings& findings) {
  for (const ShapeField& field : shapeFields()) {
    if (field.type == FieldType::Float) {
      checkNumber(static_cast<float>(fieldNumber(field, shape)), field.key, field.offset, findings);
    }
    checkOffered(field, shape, findings);
  }
  checkPath(shape.path, kShapePathOffset, findings);
  if (const auto fault = meshFault(shape)) {
    findings.faults.push_back(*fault);
  } else if (isEmptyMesh(shape)) {
    findings.notes.emplace_back("the shape has no vertices");
  }
}

void checkContent(const PathRecord& path, Findings& findings) {
  checkPath(path, sizeof(std::uint16_t), findings);
}

Findings checkDocument(const Result<LoadedDocument>& document) {
  Findings findings;
  if (!document) {
    Error error = document.error();
    error.file.clear();  // it opens the line already
    findings.faults.push_back(error.message());
    return findings;
  }
  if (document.value().extraBytes) {
    findings.notes.push_back("the bytes behind the first " +
                             std::to_string(document.value().bytesUsed) + " are ignored");
  }
  std::visit([&findings](const auto& record) { checkContent(record, findings); },
             document.value().content);
  return findings;
}

void report(const std::string& file, const Findings& findings, std::ostream& out) {
  for (const std::string& fault : findings.faults) {
    out << file << ": fault: " << fault << '\n';
  }
  for (const std::string& note : findings.notes) {
    out << file << ": note: " << note << '\n';
  }
  if (findings.faults.empty()) {
    out << file << ": ok\n";
  }
}

void checkFiles(const CheckOptions& options, CliRun& run) {
  bool anyFault = false;
  for (const std::string& file : options.files) {
    const auto document = loadDocument(file);
    if (!document && document.error().kind != ErrorKind::BadData) {
      run.fail(document.error());
      continue;
    }
    const Findings findings = checkDocument(document);
    report(oneLine(file), findings, run.out);
    anyFault = anyFault || !findings.faults.empty();
  }
  if (anyFault) {
    run.status = ExitStatus::BadData;  // outweighs a file that could not be opened
  }
}

}  // namespace

void addCheckCommand(CLI::App& app, CliRun& run) {
  CLI::App& command =
      addCommand(app, "check", "Loads shape and path files and reports each fault",
                 "  pvortex check shapes/*.j3d paths/*.j2d\n\n"
                 "A note tells of something unusual that does no harm. Exit status: 65 when there\n"
                 "was any fault, else 66 when a file could not be opened.");
  auto options = std::make_shared<CheckOptions>();
  command.add_option("FILE", options->files, "Shape (.j3d) and path (.j2d) files")
      ->type_name("")
      ->required();
  command.callback([options, &run] { checkFiles(*options, run); });
}

}  // namespace pv
