#include "cli/library_folder.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <filesystem>

#include "library/folder_names.h"
#include "path/path_file.h"
#include "shape/shape_file.h"
#include "util/ascii.h"
#include "util/disk_object.h"
#include "util/folders.h"
#include "util/program_path.h"
#include "util/utf8_path.h"

namespace pv {

namespace {

struct LibraryKind {
  std::string_view name;
  std::string_view extension;
};
constexpr std::array kLibraryKinds{LibraryKind{"shapes", ".j3d"}, LibraryKind{"paths", ".j2d"}};

std::vector<std::string> namesOf(const LibraryPlace& place) {
  std::vector<std::string> names;
  const FolderNames files(place.folder, "*" + place.extension);
  for (const auto& file : files.names()) {
    if (const auto name = withoutExtension(file); !name.empty()) {
      names.emplace_back(name);
    }
  }
  return names;
}

const LibraryKind* kindNamed(const std::string& name, CliRun& run) {
  for (const LibraryKind& kind : kLibraryKinds) {
    if (equalIgnoringCase(kind.name, name)) {
      return &kind;
    }
  }
  run.fail(ExitStatus::Usage, "--kind: '" + name + "' is neither shapes nor paths");
  return nullptr;
}

// By the data files that the folder holds.
const LibraryKind* kindHeldIn(const LibraryFolder& library, CliRun& run) {
  std::array<bool, kLibraryKinds.size()> held{};
  for (std::size_t i = 0; i < held.size(); ++i) {
    held[i] = !namesOf({library.place.folder, std::string(kLibraryKinds[i].extension)}).empty();
  }
  if (held[0] != held[1]) {
    return &kLibraryKinds[held[0] ? 0 : 1];
  }
  run.fail(ExitStatus::Usage,
           library.name + ": the folder holds " +
               (held[0] ? "both shapes and paths" : "neither shapes (.j3d) nor paths (.j2d)") +
               "; say with --kind what it is a library of");
  return nullptr;
}

// The store looks folders up in lower case; where another one has that very
// name, files would go there.
bool isFoundAgain(const std::filesystem::path& folder, const std::string& programName) {
  return isSameEntry(folder, hostPath(programName)) &&
         isSameEntry(folder, hostPath(lowerCaseOf(programName)));
}

}  // namespace

void addLibraryOptions(CLI::App& command, LibraryOptions& options) {
  command.add_option("DIR", options.folder, "The library: the folder of its .j3d or .j2d files")
      ->type_name("")
      ->required();
  command
      .add_option("--kind", options.kind,
                  "shapes or paths, where the files do not tell [what the folder holds]")
      ->type_name("KIND");
}

std::vector<std::string> LibraryFolder::dataNames() const {
  return namesOf(place);
}

CTagCloud LibraryFolder::loadTags(CliRun& run) const {
  CTagCloud cloud;
  if (folderExists(place.tagsFolder())) {
    cloud.setFolder(place.folder);
    if (const std::size_t left = cloud.loadAll(); left > 0) {
      run.note(name, std::to_string(left) + " tags are left out, because a library takes " +
                         std::to_string(kMaxTags));
    }
  }
  return cloud;
}

std::string LibraryFolder::shown(std::string_view file) const {
  std::string below(file);
  std::replace(below.begin(), below.end(), '\\', '/');
  return name + (name.ends_with('/') ? "" : "/") + below;
}

std::optional<LibraryFolder> openLibrary(const LibraryOptions& options, CliRun& run) {
  const auto folder = pathFromUtf8(options.folder);
  if (!isFolder(folder)) {
    run.fail(ExitStatus::NoInput, options.folder + ": there is no such folder");
    return {};
  }
  LibraryFolder library{options.folder, {}, false};
  library.place.folder = programPath(finalPath(folder));
  if (!isFoundAgain(folder, library.place.folder)) {
    run.fail(ExitStatus::NoInput,
             options.folder +
                 ": another folder's name differs in case only, or this one's has "
                 "characters that a library's cannot have");
    return {};
  }
  const LibraryKind* kind = options.kind ? kindNamed(*options.kind, run) : kindHeldIn(library, run);
  if (kind == nullptr) {
    return {};
  }
  library.place.extension = kind->extension;
  library.holdsPaths = kind != &kLibraryKinds.front();
  return library;
}

Result<LibraryDocument> loadLibraryFile(const LibraryFolder& library,
                                        const std::filesystem::path& file) {
  if (library.holdsPaths) {
    const auto path = LoadPathFile(file);
    return path ? Result<LibraryDocument>(path.value()) : path.error();
  }
  const auto shape = LoadShapeFile(file);
  return shape ? Result<LibraryDocument>(shape.value()) : shape.error();
}

bool makeLibraryPart(const LibraryFolder& library, std::string_view part, CliRun& run) {
  const std::string folder = library.place.folder + '\\' + std::string(part);
  CDiskObject disk;
  if (folderExists(folder) || disk.createDirectory(folder)) {
    return true;
  }
  run.fail(ExitStatus::CannotCreate, library.shown(part) + ": the folder cannot be made");
  return false;
}

}  // namespace pv
