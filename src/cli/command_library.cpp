#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "cli/commands.h"
#include "cli/library_folder.h"
#include "library/thumb_list.h"

namespace pv {

namespace {

using Json = nlohmann::ordered_json;
using NamesOfName = std::unordered_map<std::string, std::vector<std::string>>;

struct ListOptions {
  LibraryOptions library;
  std::vector<std::string> tags;
  std::vector<std::string> excluded;
  bool json = false;
};

struct TagsOptions {
  LibraryOptions library;
  bool json = false;
};

void writeJson(const Json& json, std::ostream& out) {
  constexpr int kIndent = 2;
  // Names need not be valid UTF-8.
  out << json.dump(kIndent, ' ', false, Json::error_handler_t::replace) << '\n';
}

// False after a report of each tag that the library does not have.
bool markTags(const std::vector<std::string>& names, TagState state, const LibraryFolder& library,
              CTagCloud& cloud, CliRun& run) {
  bool known = true;
  for (const std::string& name : names) {
    const std::int32_t index = cloud.findTag(name);
    if (index < 0) {
      run.fail(ExitStatus::BadData, library.name + ": there is no tag '" + name + "'");
      known = false;
    }
    cloud.setState(index, state);
  }
  return known;
}

// As the load browser shows them: all at first, else what the cloud's filter
// lets through, in the filter's order.
std::vector<std::string> filesToList(const ListOptions& options, const LibraryFolder& library,
                                     CTagCloud& cloud, CliRun& run) {
  if (!markTags(options.tags, TagState::Selected, library, cloud, run) ||
      !markTags(options.excluded, TagState::Excluded, library, cloud, run)) {
    return {};
  }
  if (options.tags.empty()) {
    return library.dataNames();
  }
  CThumbList list;
  list.setFolder(library.place.folder);
  list.setFilter("*" + library.place.extension);
  list.fill();
  list.showSubset(cloud.filterFiles());
  return list.shownNames();
}

// The tags of each file, in the cloud's order.
NamesOfName tagsOfFiles(const CTagCloud& cloud) {
  NamesOfName tags;
  for (const TagEntry& tag : cloud.entries()) {
    const std::unordered_set<std::string> files(tag.links.begin(), tag.links.end());
    for (const std::string& file : files) {
      tags[file].push_back(tag.name);
    }
  }
  return tags;
}

void listFiles(const ListOptions& options, CliRun& run) {
  const auto library = openLibrary(options.library, run);
  if (!library) {
    return;
  }
  CTagCloud cloud = library->loadTags(run);
  NamesOfName tags = tagsOfFiles(cloud);
  Json entries = Json::array();
  for (const std::string& file : filesToList(options, *library, cloud, run)) {
    if (options.json) {
      entries.push_back({{"name", file}, {"tags", tags[file]}});
      continue;
    }
    std::string line = file;
    for (const std::string& tag : tags[file]) {
      line += (&tag == &tags[file].front() ? ": " : ", ") + tag;
    }
    run.out << oneLine(line) << '\n';
  }
  if (options.json) {
    writeJson(entries, run.out);
  }
}

void listTags(const TagsOptions& options, CliRun& run) {
  const auto library = openLibrary(options.library, run);
  if (!library) {
    return;
  }
  const auto names = library->dataNames();
  const std::unordered_set<std::string> there(names.begin(), names.end());
  Json entries = Json::array();
  const CTagCloud cloud = library->loadTags(run);
  for (const TagEntry& tag : cloud.entries()) {
    const std::unordered_set<std::string> links(tag.links.begin(), tag.links.end());
    std::size_t files = 0;
    for (const std::string& link : links) {
      files += there.contains(link) ? 1 : 0;
    }
    if (options.json) {
      entries.push_back({{"tag", tag.name}, {"files", files}});
    } else {
      run.out << oneLine(tag.name) << ": " << std::to_string(files) << '\n';
    }
  }
  if (options.json) {
    writeJson(entries, run.out);
  }
}

}  // namespace

void addLibraryListCommand(CLI::App& app, CliRun& run) {
  CLI::App& command =
      addCommand(app, "list", "Lists the files of a library with their tags",
                 "  pvortex library list vortex/shapes\n"
                 "  pvortex library list vortex/shapes --tag round --tag twisted --not flat\n"
                 "  pvortex library list vortex/paths --json | jq -r '.[].name'\n\n"
                 "Exit status 65, with nothing listed, for a tag that the library does not have.");
  auto options = std::make_shared<ListOptions>();
  addLibraryOptions(command, options->library);
  CLI::Option* tags =
      command.add_option("--tag", options->tags, "Only files with this tag; all of several")
          ->type_name("TAG")
          ->allow_extra_args(false);
  command.add_option("--not", options->excluded, "Of these, none with this tag; needs --tag")
      ->type_name("TAG")
      ->allow_extra_args(false)
      ->needs(tags);
  command.add_flag("--json", options->json, "One JSON array with an object for each file");
  command.callback([options, &run] { listFiles(*options, run); });
}

void addLibraryTagsCommand(CLI::App& app, CliRun& run) {
  CLI::App& command =
      addCommand(app, "tags", "Lists the tags of a library and how many files have each",
                 "  pvortex library tags vortex/shapes\n"
                 "  pvortex library tags vortex/shapes --json");
  auto options = std::make_shared<TagsOptions>();
  addLibraryOptions(command, options->library);
  command.add_flag("--json", options->json, "One JSON array with an object for each tag");
  command.callback([options, &run] { listTags(*options, run); });
}

void addLibraryCommand(CLI::App& app, CliRun& run) {
  CLI::App& command =
      addCommand(app, "library", "Lists, checks and repairs libraries of shapes or paths",
                 "  pvortex library list vortex/shapes --tag round\n"
                 "  pvortex library check vortex/shapes\n"
                 "  pvortex library reconstruct vortex/shapes\n"
                 "  pvortex library thumbnails vortex/paths --missing");
  command.require_subcommand(1);
  addLibraryListCommand(command, run);
  addLibraryTagsCommand(command, run);
  addLibraryCheckCommand(command, run);
  addLibraryReconstructCommand(command, run);
  addLibraryThumbnailsCommand(command, run);
}

}  // namespace pv
