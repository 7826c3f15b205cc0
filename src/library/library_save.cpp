#include "library/library_save.h"

#include <system_error>

#include "library/file_numbering.h"
#include "util/file_name.h"
#include "util/folders.h"
#include "util/program_path.h"
#include "util/utf8_path.h"

namespace pv {
namespace {

namespace fs = std::filesystem;

constexpr int kMaxBackups = 10000;

/// name.j3d.bak, .bak2 and on, the first that is free; empty when none is.
fs::path freeBackup(const fs::path& file) {
  for (int i = 1; i <= kMaxBackups; ++i) {
    fs::path backup = file;
    backup += i == 1 ? ".bak" : ".bak" + std::to_string(i);
    if (!isNameTaken(backup)) {
      return backup;
    }
  }
  return {};
}

std::optional<Error> moveFile(const fs::path& from, const fs::path& to) {
  std::error_code error = std::make_error_code(std::errc::file_exists);
  if (!to.empty()) {
    error = renameEntry(from, to);
  }
  if (!error) {
    return std::nullopt;
  }
  return Error{ErrorKind::CannotCreate, utf8FromPath(from), std::nullopt,
               "cannot be renamed: " + reasonOf(error)};
}

/// The data file under its name, with an older one of that name out of the way.
void writeDataFile(const LibraryPlace& place, const WriteDataFile& writeData, SaveReport& report) {
  const fs::path old = hostPath(place.dataFile(report.name));
  fs::path backup;
  if (isNameTaken(old)) {
    backup = freeBackup(old);
    report.dataFailure = moveFile(old, backup);
    if (report.dataFailure) {
      return;
    }
    report.backupFile = programPath(backup);
  }
  const Status written = writeData(hostPath(place.folder) / pathFromUtf8(report.name));
  if (written) {
    return;
  }
  report.dataFailure = written.error();
  if (!backup.empty() && !isNameTaken(old) && !moveFile(backup, old)) {
    report.backupFile.clear();
  }
}

}  // namespace

std::string beginSave(const LibraryPlace& place, std::string_view coreName, CTagCloud& cloud) {
  if (place.folder.empty() || coreName.empty()) {
    return {};
  }
  std::string name = nextFileName(place.thumbsFolder(), coreName);
  if (!isValidFileName(name)) {
    return {};
  }
  cloud.writeFileTags(place.tagListFolder(), name);
  cloud.linkFileToSelected(place.folder + '\\', name);
  return name;
}

SaveReport finishSave(const LibraryPlace& place, std::string_view name, const BmpPicture& thumbnail,
                      const WriteDataFile& writeData) {
  SaveReport report;
  if (!isValidFileName(name)) {
    return report;
  }
  report.name = name;
  const Status drawn = writeBmpFile(hostPath(place.thumbnailFile(name)), thumbnail);
  if (!drawn) {
    report.thumbnailFailure = drawn.error();
  }
  writeDataFile(place, writeData, report);
  return report;
}

SaveReport saveToLibrary(const LibraryPlace& place, std::string_view coreName, CTagCloud& cloud,
                         const BmpPicture& thumbnail, const WriteDataFile& writeData) {
  const std::string name = beginSave(place, coreName, cloud);
  SaveReport report = finishSave(place, name, thumbnail, writeData);
  if (!report.name.empty()) {
    report.tagsSaved = cloud.saveAll();
  }
  return report;
}

}  // namespace pv
