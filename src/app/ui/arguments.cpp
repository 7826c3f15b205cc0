#include "app/ui/arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "util/folders.h"
#include "util/parent_console.h"
#include "util/utf8_path.h"

namespace pv {
namespace {

constexpr int kUsageError = 64;

[[maybe_unused]] std::string_view environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

// The library's own check would read the name in the code page of the day.
std::string faultOfFolder(const std::string& name) {
  return isFolder(pathFromUtf8(name)) ? std::string() : "Directory does not exist: " + name;
}

}  // namespace

std::variant<Arguments, int> parseArguments(std::vector<std::string> words) {
  std::string file;
  std::string root;
  CLI::App app("Designs emitter shapes for particle effects.", "particle-vortex");
  app.allow_windows_style_options(false);  // "//server/share" is a folder
  app.add_option("FILE", file, "Shape (.j3d) or path (.j2d) to open");
  app.add_option("--root", root, "Application folder to work in")
      ->type_name("DIR")
      ->check(faultOfFolder);
  app.set_version_flag("--version", "particle-vortex " PV_VERSION, "Print the version and end");
  app.set_help_flag("-h,--help", "Print this help and end");
  try {
    std::reverse(words.begin(), words.end());  // the library takes them from the back
    app.parse(std::move(words));
  } catch (const CLI::ParseError& error) {
    const ParentConsole console;
    return app.exit(error) == 0 ? 0 : kUsageError;
  }
  return Arguments{pathFromUtf8(file), pathFromUtf8(root)};
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
