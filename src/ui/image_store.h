#pragma once

#include <string>
#include <string_view>

#include <QPixmap>

class QCursor;

namespace pv {

/// The images and cursors of an application folder, by the names that the pages
/// use, such as "/bin/program/tab-wire.png". A missing or broken file yields a
/// null pixmap, and nothing is reported.
class ImageStore {
 public:
  /// A program path without a backslash at its end.
  explicit ImageStore(std::string applicationFolder) : folder_(std::move(applicationFolder)) {}

  /// The drawing made for the pixel ratio: NAME.png, NAME@2x.png or NAME@3x.png,
  /// whichever is the smallest that is large enough, with its ratio set.
  [[nodiscard]] QPixmap pixmap(std::string_view name, double pixelRatio) const;
  /// The standard arrow where the file is missing. `name` as in "\bin\program\pen.cur".
  [[nodiscard]] QCursor cursor(std::string_view name, double pixelRatio) const;

 private:
  std::string folder_;
};

}  // namespace pv
