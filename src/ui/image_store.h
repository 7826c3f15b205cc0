#pragma once

#include <functional>
#include <future>
#include <map>
#include <string>
#include <string_view>

#include <QImage>
#include <QPixmap>

class QCursor;

namespace pv {

/// The images and cursors of an application folder, by the names that the pages
/// use, such as "/bin/program/tab-wire.png". A missing or broken file yields a
/// null pixmap, and nothing is reported.
class ImageStore {
 public:
  /// A program path without a backslash at its end.
  explicit ImageStore(std::string_view applicationFolder);

  /// Begins to read the drawings for this pixel ratio on another thread, where they
  /// stay until the store goes: all controls of a window want theirs at once.
  void readAhead(double pixelRatio);

  /// The drawing made for the pixel ratio: NAME.png, NAME@2x.png or NAME@3x.png,
  /// whichever is the smallest that is large enough, with its ratio set.
  [[nodiscard]] QPixmap pixmap(std::string_view name, double pixelRatio) const;
  /// The standard arrow where the file is missing. `name` as in "\bin\program\pen.cur".
  [[nodiscard]] QCursor cursor(std::string_view name, double pixelRatio) const;

 private:
  using Drawings = std::map<std::string, QImage, std::less<>>;

  [[nodiscard]] QPixmap load(const std::string& file, double ratio) const;

  std::string folder_;                     ///< as it is written on this system
  std::shared_future<Drawings> drawings_;  ///< by their names below the folder
};

}  // namespace pv
