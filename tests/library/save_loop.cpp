// Saves into a library again and again until it is killed: save_loop FOLDER COUNT.
// Names each finished save on a line of its own.

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <span>
#include <string>
#include <vector>

#include "library/library_save.h"
#include "save_loop_data.h"
#include "util/files.h"
#include "util/program_path.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    return 64;
  }
  const pv::LibraryPlace place{pv::programPath(argv[1]), ".j3d"};
  const pv::BmpPicture picture{96, 72, std::vector<std::uint32_t>(96 * 72, 0x123456)};
  for (int i = 0; i < std::atoi(argv[2]); ++i) {
    pv::CTagCloud cloud;
    cloud.setFolder(place.folder);
    cloud.loadAll();
    cloud.layout(10, 0, [](std::int32_t, std::string_view) { return pv::TextExtent{9, 12}; });
    const auto tags = static_cast<std::size_t>(cloud.count());
    if (tags > 0) {
      const auto& box = cloud.entries()[static_cast<std::size_t>(i) % tags].box;
      cloud.click({box.left, box.top + 1});
    }
    const auto report = pv::saveToLibrary(place, "shpe", cloud, picture, [](const auto& name) {
      const std::string data = pv::saveLoopData(name.filename().string());
      return pv::writeFile(name.string() + ".j3d", std::as_bytes(std::span(data)));
    });
    if (!report.saved() || !report.tagsSaved) {
      return 74;
    }
    std::cout << report.name << std::endl;
  }
  return 0;
}
