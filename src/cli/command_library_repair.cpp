#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/library_folder.h"
#include "library/library_check.h"
#include "library/tag_editing.h"

namespace pv {

namespace {

std::string findingLine(const LibraryFolder& library, const Finding& finding) {
  return oneLine(std::string(findingName(finding.kind)) + ": " + library.shown(finding.file) +
                 ": " + finding.text);
}

void checkLibraryFolder(const LibraryOptions& options, CliRun& run) {
  const auto library = openLibrary(options, run);
  if (!library) {
    return;
  }
  const auto findings =
      checkLibrary(library->place, [&library](const std::filesystem::path& file) -> Status {
        const auto document = loadLibraryFile(*library, file);
        return document ? Status(Done{}) : document.error();
      });
  for (const Finding& finding : findings) {
    run.out << findingLine(*library, finding) << '\n';
  }
  if (findings.empty()) {
    run.out << oneLine(library->name) << ": ok\n";
    return;
  }
  run.status = ExitStatus::BadData;
  if (std::any_of(findings.begin(), findings.end(), [](const Finding& finding) {
        return isRepairedByReconstruction(finding.kind);
      })) {
    run.note(library->name, "'pvortex library reconstruct' repairs the links");
  }
}

// What concerns the tags; data files are not looked into.
std::vector<Finding> linkFindings(const LibraryFolder& library) {
  auto findings =
      checkLibrary(library.place, [](const std::filesystem::path& /*file*/) { return Done{}; });
  std::erase_if(findings, [](const Finding& finding) {
    return finding.kind != FindingKind::UnreadableList && !isRepairedByReconstruction(finding.kind);
  });
  return findings;
}

// The links stand and fall with these files, so they must all be there.
bool tagListsCanBeRead(const LibraryFolder& library, const std::vector<Finding>& findings,
                       CliRun& run) {
  if (!folderExists(library.place.tagListFolder())) {
    run.fail(
        ExitStatus::NoInput,
        library.shown("tagdb") + ": the folder is missing, so there is nothing to rebuild from");
    return false;
  }
  for (const Finding& finding : findings) {
    if (finding.kind == FindingKind::UnreadableList && finding.file.ends_with(".tdb")) {
      run.fail(ExitStatus::BadData, library.shown(finding.file) +
                                        ": it cannot be read, so nothing was changed; delete or "
                                        "repair it first");
    }
  }
  return run.status == ExitStatus::Done;
}

void writeRepairs(const LibraryFolder& library, const std::vector<Finding>& before,
                  const std::vector<Finding>& after, CliRun& run) {
  for (const Finding& finding : before) {
    if (std::find(after.begin(), after.end(), finding) == after.end()) {
      run.out << "repaired: " << findingLine(library, finding) << '\n';
    }
  }
  for (const Finding& finding : after) {
    run.fail(ExitStatus::BadData, "not repaired: " + findingLine(library, finding));
  }
}

void reconstructLibrary(const LibraryOptions& options, CliRun& run) {
  const auto library = openLibrary(options, run);
  if (!library) {
    return;
  }
  const auto before = linkFindings(*library);
  if (!tagListsCanBeRead(*library, before, run) || !makeLibraryPart(*library, "tags", run)) {
    return;
  }
  const auto names = library->dataNames();
  CTagCloud cloud = library->loadTags(run);
  reconstructLinks(cloud, library->place, names);
  const auto after = linkFindings(*library);
  if (!after.empty() && !cloud.errorText().empty()) {
    run.fail(ExitStatus::InputOutput, library->name + ": " + cloud.errorText());
  }
  writeRepairs(*library, before, after, run);
  std::size_t links = 0;
  for (const TagEntry& tag : cloud.entries()) {
    links += tag.links.size();
  }
  run.out << oneLine(library->name) << ": files " << std::to_string(names.size()) << ", tags "
          << std::to_string(cloud.count()) << ", links " << std::to_string(links) << '\n';
}

}  // namespace

void addLibraryCheckCommand(CLI::App& app, CliRun& run) {
  CLI::App& command =
      addCommand(app, "check", "Loads everything in a library and names each fault",
                 "  pvortex library check vortex/shapes\n"
                 "  pvortex library check vortex/shapes | grep ^missing-thumbnail:\n\n"
                 "A line for each fault: its name, the file, and what is wrong. Exit status: 65\n"
                 "when there was any.");
  auto options = std::make_shared<LibraryOptions>();
  addLibraryOptions(command, *options);
  command.callback([options, &run] { checkLibraryFolder(*options, run); });
}

void addLibraryReconstructCommand(CLI::App& app, CliRun& run) {
  CLI::App& command = addCommand(
      app, "reconstruct", "Rebuilds which files have a tag from the files' tag lists",
      "  pvortex library reconstruct vortex/shapes\n\n"
      "Writes every .tag file from the .tdb files, as Reconstruct in the designer does.\n"
      "Tags that no file has stay. Exit status: 65 when a fault is left.");
  auto options = std::make_shared<LibraryOptions>();
  addLibraryOptions(command, *options);
  command.callback([options, &run] { reconstructLibrary(*options, run); });
}

}  // namespace pv
