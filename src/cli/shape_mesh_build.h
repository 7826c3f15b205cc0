#pragma once

#include <optional>
#include <string>

#include "cli/cli_run.h"
#include "shape/shape_record.h"
#include "view3d/shape_view.h"

namespace pv {

/// Why no mesh can be built from the shape, found without building one.
[[nodiscard]] std::optional<std::string> meshFault(const ShapeRecord& shape);

/// Whether the shape asks for no vertices at all (an empty path, negative
/// amounts); it then shows and exports as nothing.
[[nodiscard]] bool isEmptyMesh(const ShapeRecord& shape);

/// Gives the view the shape. False after a report, in the name of `file`, when
/// there is a mesh fault.
bool giveShape(ShapeView& view, const ShapeRecord& shape, const std::string& file, CliRun& run);

/// For a view that was given a shape and asked for its mesh or a frame: false
/// after a report when there was not enough memory.
bool checkMesh(const ShapeView& view, const std::string& file, CliRun& run);
/// The same for the frame that the view drew last.
bool checkFrame(const ShapeView& view, const std::string& file, CliRun& run);

}  // namespace pv
