#include "cli/assignments.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "cli/documents.h"
#include "shape/shape_fields.h"
#include "util/ascii.h"
#include "util/number_text.h"

namespace pv {

namespace {

constexpr std::string_view kPathKey = "path";
constexpr std::string_view kPathPointCountKey = "emitter.pathPointCount";

bool applyPath(const std::string& file, ShapeRecord& shape, CliRun& run) {
  const auto path = loadPath(file);
  if (!path) {
    run.fail(path.error());
    return false;
  }
  shape.path = path.value();
  return true;
}

bool applyField(std::string_view key, std::string_view value, ShapeRecord& shape, CliRun& run) {
  const ShapeField* field = findShapeField(key);
  if (field == nullptr) {
    run.fail(ExitStatus::Usage,
             std::string(key) + ": there is no such key; --list-keys prints them all");
    return false;
  }
  const auto status = setField(*field, value, shape);
  if (!status) {
    run.fail(ExitStatus::Usage, status.error().reason);
  }
  return status.ok();
}

std::string rangeText(FieldRange range) {
  return numberText(static_cast<float>(range.low)) + ".." +
         numberText(static_cast<float>(range.high));
}

std::string offeredText(const ShapeField& field) {
  std::string text;
  for (const auto name : field.names) {
    text += (text.empty() ? "" : "|") + std::string(name);
  }
  if (!field.range) {
    return text.empty() ? "any" : text;
  }
  text = rangeText(*field.range);
  for (std::int32_t i = 0; i < kEmitterKindCount; ++i) {
    const auto kind = static_cast<EmitterKind>(i);
    const auto range = offeredRange(field, kind);
    if (range != field.range) {
      ShapeRecord shape;
      shape.emitter.kind = kind;
      text += ", " + fieldText(*findShapeField("emitter.kind"), shape) + ": " + rangeText(*range);
    }
  }
  return text;
}

std::string_view typeText(FieldType type) {
  switch (type) {
    case FieldType::Integer:
      return "integer";
    case FieldType::Float:
      return "float";
    case FieldType::Flag:
    case FieldType::ByteFlag:
      return "flag";
    case FieldType::Name:
      return "name";
    case FieldType::Word:
      break;
  }
  return "word";
}

using Row = std::array<std::string, 4>;

std::string tableText(const std::vector<Row>& rows) {
  std::array<std::size_t, 4> widths{};
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      widths[i] = std::max(widths[i], row[i].size() + 2);
    }
  }
  std::string text;
  for (const Row& row : rows) {
    for (std::size_t i = 0; i + 1 < row.size(); ++i) {
      text += row[i] + std::string(widths[i] - row[i].size(), ' ');
    }
    text += row.back() + "\n";
  }
  return text;
}

}  // namespace

bool applyAssignments(std::span<const std::string> assignments, ShapeRecord& shape, CliRun& run) {
  bool countGiven = false;
  for (const std::string& assignment : assignments) {
    const std::size_t equals = assignment.find('=');
    if (equals == std::string::npos) {
      run.fail(ExitStatus::Usage, "'" + assignment + "' is not of the form KEY=VALUE");
      return false;
    }
    const std::string_view key = std::string_view(assignment).substr(0, equals);
    const std::string value = assignment.substr(equals + 1);
    const bool applied = equalIgnoringCase(key, kPathKey) ? applyPath(value, shape, run)
                                                          : applyField(key, value, shape, run);
    if (!applied) {
      return false;
    }
    countGiven = countGiven || equalIgnoringCase(key, kPathPointCountKey);
  }
  if (!countGiven) {
    shape.emitter.pathPointCount = generatedPathPointCount(shape);
  }
  return true;
}

std::string keyListText() {
  const ShapeRecord fresh;
  std::vector<Row> rows{{"KEY", "TYPE", "DEFAULT", "OFFERED"}};
  for (const ShapeField& field : shapeFields()) {
    if (field.isSettable()) {
      rows.push_back({field.key, std::string(typeText(field.type)), fieldText(field, fresh),
                      offeredText(field)});
    }
  }
  rows.push_back({std::string(kPathKey), "file", "", "a .j2d file"});
  return tableText(rows);
}

}  // namespace pv
