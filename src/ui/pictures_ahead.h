#pragma once

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <QImage>

namespace pv {

/// Reads pictures on a thread of its own, in their order.
///
/// Life cycle: the thread runs from the beginning; the destructor waits for the picture
/// that it is at, and keeps the rest from being read.
class PicturesAhead {
 public:
  explicit PicturesAhead(std::vector<std::string> programPaths);
  ~PicturesAhead() = default;
  PicturesAhead(const PicturesAhead&) = delete;
  PicturesAhead& operator=(const PicturesAhead&) = delete;
  PicturesAhead(PicturesAhead&&) = delete;
  PicturesAhead& operator=(PicturesAhead&&) = delete;

  /// Null where the file is no picture, is none of those to read, or is not read yet.
  [[nodiscard]] QImage find(std::string_view programPath) const;

 private:
  mutable std::mutex mutex_;
  std::map<std::string, QImage, std::less<>> pictures_;  // by program path
  std::jthread thread_;                                  // the last, since it uses the others
};

}  // namespace pv
