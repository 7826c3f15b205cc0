#include "ui/pictures_ahead.h"

#include <stop_token>
#include <utility>

#include "ui/picture_file.h"
#include "util/program_path.h"

namespace pv {

PicturesAhead::PicturesAhead(std::vector<std::string> programPaths)
    : thread_([this, paths = std::move(programPaths)](const std::stop_token& stop) {
        for (const std::string& path : paths) {
          if (stop.stop_requested()) {
            return;
          }
          QImage picture = readPicture(hostPath(path));
          const std::scoped_lock lock(mutex_);
          pictures_.emplace(path, std::move(picture));
        }
      }) {}

QImage PicturesAhead::find(std::string_view programPath) const {
  const std::scoped_lock lock(mutex_);
  const auto found = pictures_.find(programPath);
  return found != pictures_.end() ? found->second : QImage();
}

}  // namespace pv
