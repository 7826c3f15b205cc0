#pragma once

#include <span>
#include <string>

#include "cli/cli_run.h"
#include "shape/shape_record.h"

namespace pv {

/// Applies KEY=VALUE texts in order, "path=FILE.j2d" among them, and refreshes
/// emitter.pathPointCount unless it is one of the keys. False after a report.
bool applyAssignments(std::span<const std::string> assignments, ShapeRecord& shape, CliRun& run);

/// Every key with its type, what the designer offers, and its default.
[[nodiscard]] std::string keyListText();

}  // namespace pv
