#include "library/library_check.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "library/folder_names.h"
#include "library/line_file.h"
#include "library/tag_cloud.h"
#include "util/ascii.h"
#include "util/bmp_file.h"
#include "util/file_name.h"
#include "util/program_path.h"

namespace pv {
namespace {

struct KindRow {
  FindingKind kind;
  std::string_view name;
  bool repaired;  ///< by rebuilding the links
};

constexpr std::array kKinds{
    KindRow{FindingKind::MissingFolder, "missing-folder", false},
    KindRow{FindingKind::DataDoesNotLoad, "data-does-not-load", false},
    KindRow{FindingKind::MissingThumbnail, "missing-thumbnail", false},
    KindRow{FindingKind::BadThumbnail, "bad-thumbnail", false},
    KindRow{FindingKind::UnreadableList, "unreadable-list", false},
    KindRow{FindingKind::MissingLink, "missing-link", true},
    KindRow{FindingKind::MissingTag, "missing-tag", true},
    KindRow{FindingKind::DanglingLink, "dangling-link", true},
    KindRow{FindingKind::LostCompanion, "lost-companion", false},
    KindRow{FindingKind::ForeignFile, "foreign-file", false},
    KindRow{FindingKind::InvalidName, "invalid-name", false},
    KindRow{FindingKind::TooManyTags, "too-many-tags", false},
};

const KindRow* rowOf(FindingKind kind) {
  const auto row =
      std::find_if(kKinds.begin(), kKinds.end(), [kind](const auto& r) { return r.kind == kind; });
  return row == kKinds.end() ? nullptr : &*row;
}

std::string joined(const std::string& a, const std::string& b, const std::string& c) {
  return a + b + c;
}

using NameSet = std::unordered_set<std::string>;
/// Entries of each line file that could be read, by its name.
using Lists = std::map<std::string, NameSet>;

class Checker {
 public:
  Checker(const LibraryPlace& place, const LoadDataFile& loadData)
      : place_(place), loadData_(loadData) {}

  std::vector<Finding> run() {
    for (const std::string_view part : {"thumbs", "tagdb", "tags"}) {
      if (!folderExists(place_.folder + '\\' + std::string(part))) {
        add(FindingKind::MissingFolder, std::string(part), "the folder is missing");
      }
    }
    checkData();
    checkThumbnails();
    for (auto& [name, tags] : readLists("tagdb\\", ".tdb")) {
      const std::string& file = dataNameOf(name);
      if (file == name || !fileTags_.contains(file)) {
        fileTags_[file] = std::move(tags);
      }
    }
    checkLostLists();
    tagFiles_ = readLists("tags\\", ".tag");
    checkTags();
    checkLinks();
    return std::move(findings_);
  }

 private:
  void add(FindingKind kind, std::string file, std::string text) {
    findings_.push_back({kind, std::move(file), std::move(text)});
  }

  /// The names behind the files of one kind in a part of the library; reports
  /// foreign files and names that no other system would take.
  std::vector<std::string> namesIn(const std::string& part, std::string_view extension) {
    std::vector<std::string> names;
    const FolderNames files(place_.folder + '\\' + part, "*.*");
    for (const auto& file : files.names()) {
      if (!endsIgnoringCase(file, extension)) {
        if (!part.empty() || !isBackup(file)) {
          add(FindingKind::ForeignFile, part + file, "this file does not belong here");
        }
        continue;
      }
      std::string name(withoutExtension(file));
      if (isValidFileName(name)) {
        names.push_back(std::move(name));
      } else {
        add(FindingKind::InvalidName, part + file, "the name cannot be used on every system");
      }
    }
    return names;
  }

  [[nodiscard]] bool isBackup(std::string_view file) const {
    const std::string mark = place_.extension + ".bak";
    const auto at = file.rfind(mark);
    return at != std::string_view::npos &&
           file.find_first_not_of("0123456789", at + mark.size()) == std::string_view::npos;
  }

  void checkData() {
    for (auto& name : namesIn("", place_.extension)) {
      const Status loaded = loadData_(hostPath(place_.dataFile(name)));
      if (!loaded) {
        add(FindingKind::DataDoesNotLoad, name + place_.extension, loaded.error().reason);
      }
      dataNames_.insert(name);
      anyCase_.emplace(lowerCaseOf(name), name);
      dataOrder_.push_back(std::move(name));
    }
  }

  void checkThumbnails() {
    NameSet there;
    for (const auto& name : namesIn("thumbs\\", ".bmp")) {
      const std::string file = "thumbs\\" + name + ".bmp";
      there.insert(lowerCaseOf(name));
      if (!dataNames_.contains(dataNameOf(name))) {
        add(FindingKind::LostCompanion, file, "there is no data file of this name");
      } else if (const auto picture = readBmpFile(hostPath(place_.thumbnailFile(name))); !picture) {
        add(FindingKind::BadThumbnail, file, picture.error().reason);
      }
    }
    for (const auto& name : dataOrder_) {
      if (!there.contains(lowerCaseOf(name))) {
        add(FindingKind::MissingThumbnail, name + place_.extension, "there is no thumbnail");
      }
    }
  }

  /// A file's companions are found whatever their case is.
  [[nodiscard]] const std::string& dataNameOf(const std::string& name) const {
    const auto found = anyCase_.find(lowerCaseOf(name));
    return dataNames_.contains(name) || found == anyCase_.end() ? name : found->second;
  }

  Lists readLists(const std::string& part, const std::string& extension) {
    Lists lists;
    CLineFile lineFile;
    for (const auto& name : namesIn(part, extension)) {
      std::vector<std::string> lines;
      std::string file = joined(part, name, extension);
      if (lineFile.readLines(joined(place_.folder, "\\", file), lines)) {
        lists.emplace(name, NameSet(lines.begin(), lines.end()));
      } else {
        add(FindingKind::UnreadableList, std::move(file), lineFile.errorText());
      }
    }
    return lists;
  }

  void checkLostLists() {
    for (const auto& [name, tags] : fileTags_) {
      if (!dataNames_.contains(name)) {
        add(FindingKind::LostCompanion, "tagdb\\" + name + ".tdb",
            "there is no data file of this name");
      }
    }
  }

  void checkTags() {
    if (tagFiles_.size() > kMaxTags) {
      add(FindingKind::TooManyTags, "tags",
          std::to_string(tagFiles_.size()) + " tags, of which the library takes 256");
    }
    for (const auto& [tag, links] : tagFiles_) {
      for (const auto& link : sorted(links)) {
        if (!dataNames_.contains(link)) {
          add(FindingKind::DanglingLink, "tags\\" + tag + ".tag",
              "'" + link + "' is not in the library");
        } else if (!lists(fileTags_, link, tag)) {
          add(FindingKind::MissingTag, "tagdb\\" + link + ".tdb",
              "the tag '" + tag + "' has this file, the file not the tag");
        }
      }
    }
  }

  void checkLinks() {
    for (const auto& [name, tags] : fileTags_) {
      if (!dataNames_.contains(name)) {
        continue;
      }
      for (const auto& tag : sorted(tags)) {
        if (!isValidFileName(tag)) {
          add(FindingKind::InvalidName, "tagdb\\" + name + ".tdb",
              "no file can hold the links of the tag '" + tag + "'");
        } else if (!lists(tagFiles_, tag, name)) {
          add(FindingKind::MissingLink, "tags\\" + tag + ".tag",
              "'" + name + "' has this tag, the tag not the file");
        }
      }
    }
  }

  [[nodiscard]] static bool lists(const Lists& lists, const std::string& name,
                                  const std::string& entry) {
    const auto found = lists.find(name);
    return found != lists.end() && found->second.contains(entry);
  }

  [[nodiscard]] static std::vector<std::string> sorted(const NameSet& names) {
    std::vector<std::string> result(names.begin(), names.end());
    std::sort(result.begin(), result.end());
    return result;
  }

  const LibraryPlace& place_;
  const LoadDataFile& loadData_;
  std::vector<Finding> findings_;
  std::vector<std::string> dataOrder_;
  NameSet dataNames_;
  std::unordered_map<std::string, std::string> anyCase_;  ///< data names by lower case
  Lists fileTags_;
  Lists tagFiles_;
};

}  // namespace

std::string_view findingName(FindingKind kind) {
  const auto* const row = rowOf(kind);
  return row == nullptr ? std::string_view() : row->name;
}

bool isRepairedByReconstruction(FindingKind kind) {
  const auto* const row = rowOf(kind);
  return row != nullptr && row->repaired;
}

std::vector<Finding> checkLibrary(const LibraryPlace& place, const LoadDataFile& loadData) {
  return Checker(place, loadData).run();
}

}  // namespace pv
