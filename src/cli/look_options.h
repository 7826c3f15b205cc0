#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "app/document_picture.h"
#include "cli/cli_run.h"

namespace CLI {
class App;
}

namespace pv {

/// Yaw, pitch, roll and distance.
inline constexpr std::size_t kCameraOptionCount = 4;

/// How a picture shall look at a document, as texts; what is not given stays.
struct LookOptions {
  std::optional<std::string> view;
  std::array<std::optional<std::string>, kCameraOptionCount> camera;
};

/// --view, --yaw, --pitch, --roll and --distance; the help shows `defaults`.
void addLookOptions(CLI::App& command, LookOptions& options, const ShapeLook& defaults);

/// Changes what the options name. False after a usage report.
bool applyLook(const LookOptions& options, ShapeLook& look, CliRun& run);
/// The same for a path, which has flat views only and no camera.
bool applyLook(const LookOptions& options, PathViewport& look, CliRun& run);

}  // namespace pv
