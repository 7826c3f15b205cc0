#include "app/application_folder.h"

#include <algorithm>
#include <iterator>

#include "util/ascii.h"
#include "util/folders.h"
#include "util/program_path.h"

namespace pv {
namespace {

constexpr std::string_view kExtension = ".exe";
constexpr char kSeparator = '\\';

std::string lowered(std::string_view text) {
  std::string result;
  std::transform(text.begin(), text.end(), std::back_inserter(result), asciiLower);
  return result;
}

}  // namespace

std::string applicationFolder(const std::optional<std::string>& moduleName) {
  constexpr std::string_view kBin = "bin";
  if (!moduleName) {
    return "Error";
  }
  const std::string name = lowered(*moduleName);
  if (name.size() < kExtension.size()) {
    return "Illegal executable name '" + name + "'!";
  }
  if (!name.ends_with(kExtension)) {
    return "Application must end in .exe! '" + name + "'";
  }
  const auto separator = name.rfind(kSeparator);
  std::string folder = separator == std::string::npos ? std::string() : name.substr(0, separator);
  if (folder.ends_with(kBin)) {
    folder.resize(folder.size() - std::min(folder.size(), kBin.size() + 1));
  }
  return folder;
}

std::string applicationFolderAt(const std::filesystem::path& root) {
  std::string folder = programPath(absolutePath(root).lexically_normal());
  if (folder.ends_with(kSeparator)) {
    folder.pop_back();
  }
  return folder;
}

std::string helpPath(const std::optional<std::string>& moduleName, std::string_view page) {
  const std::string name = lowered(moduleName.value_or(""));
  return name.substr(0, name.find("bin\\")) + "help\\" + std::string(page);
}

void makeLibraryFolders(std::string_view applicationFolder) {
  if (!isAbsoluteProgramPath(applicationFolder) || !isFolder(hostPath(applicationFolder))) {
    return;
  }
  for (const std::string_view library : {kShapeLibrary, kPathLibrary}) {
    for (const std::string_view part : {"thumbs", "tagdb", "tags"}) {
      const std::string folder = std::string(applicationFolder) + kSeparator +
                                 std::string(library) + kSeparator + std::string(part);
      static_cast<void>(createFolders(hostPath(folder)));
    }
  }
}

}  // namespace pv
