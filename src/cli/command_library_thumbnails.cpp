#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <memory>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

#include "app/document_picture.h"
#include "cli/commands.h"
#include "cli/library_folder.h"
#include "cli/look_options.h"
#include "cli/progress_bar.h"
#include "cli/shape_mesh_build.h"
#include "util/file_name.h"
#include "util/program_path.h"

namespace pv {

namespace {

struct ThumbnailOptions {
  LibraryOptions library;
  std::vector<std::string> names;
  LookOptions look;
  bool missing = false;
};

// A flat view with equal scales, cut to 4:3 in the thumbnail; further away where
// the path would not fit.
PathViewport fittedLook(const PathRecord& path, PathViewport look) {
  constexpr float kRoomAcross = 0.95F;
  constexpr float kRoomUp = kRoomAcross * kThumbnailHeight / kThumbnailWidth;
  look.width = kThumbnailWidth;
  look.height = kThumbnailWidth;
  for (const Vec3& point : path.inUse()) {
    const float across = std::abs(point.axis(look.horizontalAxis()));
    const float up = std::abs(point.axis(look.verticalAxis()));
    if (std::isfinite(across) && std::isfinite(up)) {
      look.zoom = across * look.zoom > kRoomAcross ? kRoomAcross / across : look.zoom;
      look.zoom = up * look.zoom > kRoomUp ? kRoomUp / up : look.zoom;
    }
  }
  return look;
}

/// Draws the pictures of one library, whose look was understood already.
class ThumbnailMaker {
 public:
  ThumbnailMaker(const ThumbnailOptions& options, const LibraryFolder& library, CliRun& run)
      : options_(options), library_(library), run_(run) {}

  /// False after a report when the options are wrong for this kind of library.
  bool checkLook() {
    ShapeLook shape;
    PathViewport path;
    return library_.holdsPaths ? applyLook(options_.look, path, run_)
                               : applyLook(options_.look, shape, run_);
  }

  void run(const std::vector<std::string>& names) {
    ProgressBar progress(run_, names.size());
    std::size_t written = 0;
    for (const std::string& name : names) {
      const Status made = wanted(name) ? write(name, written) : Status(Done{});
      if (!made) {
        progress.clear();
        run_.fail(made.error());
      }
      progress.advance();
    }
    progress.clear();
    run_.out << oneLine(library_.name) << ": thumbnails " << std::to_string(written) << " of "
             << std::to_string(names.size()) << " written\n";
  }

 private:
  [[nodiscard]] bool wanted(const std::string& name) const {
    return !options_.missing || !isValidFileName(name) ||
           !readBmpFile(hostPath(library_.place.thumbnailFile(name)));
  }

  Status write(const std::string& name, std::size_t& written) {
    const std::string file = library_.shown(name + library_.place.extension);
    if (!isValidFileName(name)) {
      return Error{ErrorKind::BadData, file, {}, "the name cannot be used on every system"};
    }
    // Whatever the system calls it: a file that does not load is bad data.
    const auto document = loadLibraryFile(library_, hostPath(library_.place.dataFile(name)));
    if (!document) {
      return Error{ErrorKind::BadData, file, document.error().offset, document.error().reason};
    }
    const auto picture =
        std::visit([this](const auto& record) { return draw(record); }, document.value());
    if (!picture) {
      return Error{ErrorKind::BadData, file, {}, picture.error().reason};
    }
    const Status saved =
        writeBmpFile(hostPath(library_.place.thumbnailFile(name)), picture.value());
    if (!saved) {
      return Error{
          saved.error().kind, library_.shown("thumbs/" + name + ".bmp"), {}, saved.error().reason};
    }
    ++written;
    return Done{};
  }

  [[nodiscard]] Result<BmpPicture> draw(const ShapeRecord& shape) {
    if (const auto fault = meshFault(shape)) {
      return Error{ErrorKind::BadData, {}, {}, *fault};
    }
    ShapeLook look = libraryLook(shape);
    applyLook(options_.look, look, run_);
    return shapeThumbnail(shape, look, kThumbnailWidth, kThumbnailHeight);
  }

  [[nodiscard]] Result<BmpPicture> draw(const PathRecord& path) {
    PathViewport look = libraryLook(path);
    applyLook(options_.look, look, run_);
    return pathThumbnail(path, fittedLook(path, look));
  }

  const ThumbnailOptions& options_;
  const LibraryFolder& library_;
  CliRun& run_;
};

// The named files, or all. Reports those that the library does not hold.
std::vector<std::string> namesToDraw(const ThumbnailOptions& options, const LibraryFolder& library,
                                     CliRun& run) {
  auto there = library.dataNames();
  if (options.names.empty()) {
    return there;
  }
  std::vector<std::string> names;
  for (const std::string& name : options.names) {
    if (std::binary_search(there.begin(), there.end(), name)) {
      names.push_back(name);
    } else {
      run.fail(ExitStatus::NoInput,
               library.shown(name + library.place.extension) + ": there is no such file");
    }
  }
  return names;
}

void makeThumbnails(const ThumbnailOptions& options, CliRun& run) {
  const auto library = openLibrary(options.library, run);
  if (!library) {
    return;
  }
  ThumbnailMaker maker(options, *library, run);
  if (maker.checkLook() && makeLibraryPart(*library, "thumbs", run)) {
    maker.run(namesToDraw(options, *library, run));
  }
}

}  // namespace

void addLibraryThumbnailsCommand(CLI::App& app, CliRun& run) {
  CLI::App& command = addCommand(
      app, "thumbnails", "Draws the thumbnails of a library anew",
      "  pvortex library thumbnails vortex/shapes --missing\n"
      "  pvortex library thumbnails vortex/shapes --yaw 270 --pitch 0\n"
      "  pvortex library thumbnails vortex/paths hoop-0000 --view side\n\n"
      "Without --view a path is seen from where it is widest. Files that do not load are\n"
      "passed over; the exit status is then 65.");
  auto options = std::make_shared<ThumbnailOptions>();
  addLibraryOptions(command, options->library);
  command.add_option("NAME", options->names, "Files, without folder and extension [all]")
      ->type_name("");
  command.add_flag("--missing", options->missing,
                   "Only thumbnails that are not there or cannot be read");
  addLookOptions(command, options->look, kLibraryLook);
  command.callback([options, &run] { makeThumbnails(*options, run); });
}

}  // namespace pv
