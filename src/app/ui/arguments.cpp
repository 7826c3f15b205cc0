#include "app/ui/arguments.h"

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <string_view>

namespace pv {
namespace {

constexpr int kUsageError = 64;

[[maybe_unused]] std::string_view environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

}  // namespace

std::variant<Arguments, int> parseArguments(int argc, const char* const* argv) {
  Arguments arguments;
  CLI::App app("Designs emitter shapes for particle effects.", "particle-vortex");
  app.add_option("FILE", arguments.file, "Shape file (.j3d) to open");
  app.add_option("--root", arguments.root, "Application folder to work in")
      ->type_name("DIR")
      ->check(CLI::ExistingDirectory);
  app.set_version_flag("--version", "particle-vortex " PV_VERSION, "Print the version and end");
  app.set_help_flag("-h,--help", "Print this help and end");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : kUsageError;
  }
  return arguments;
}

bool hasDisplay() {
#if defined(_WIN32) || defined(__APPLE__)
  return true;
#else
  const std::string_view platform = environment("QT_QPA_PLATFORM");
  const bool needsServer =
      platform.empty() || platform.starts_with("xcb") || platform.starts_with("wayland");
  return !needsServer || !environment("DISPLAY").empty() || !environment("WAYLAND_DISPLAY").empty();
#endif
}

}  // namespace pv
