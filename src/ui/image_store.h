#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <QPixmap>

class QCursor;

namespace pv {

class PicturesAhead;

/// The images and cursors of an application folder, by the names that the pages
/// use, such as "/bin/program/tab-wire.png". A missing or broken file yields a
/// null pixmap, and nothing is reported.
class ImageStore {
 public:
  /// A program path without a backslash at its end.
  explicit ImageStore(std::string_view applicationFolder);

  /// Begins to read drawings that will be wanted at once, those for this pixel ratio,
  /// on another thread. One that is wanted before its turn is read by who wants it. They
  /// are kept until the last copy of the store goes.
  void readAhead(const std::vector<std::string>& names, double pixelRatio);

  /// The drawing made for the pixel ratio: NAME.png, NAME@2x.png or NAME@3x.png,
  /// whichever is the smallest that is large enough, with its ratio set.
  [[nodiscard]] QPixmap pixmap(std::string_view name, double pixelRatio) const;
  /// The standard arrow where the file is missing. `name` as in "\bin\program\pen.cur".
  [[nodiscard]] QCursor cursor(std::string_view name, double pixelRatio) const;

 private:
  [[nodiscard]] QPixmap load(const std::string& name, double ratio) const;

  std::string folder_;  ///< as it is written on this system
  std::shared_ptr<const PicturesAhead> ahead_;
};

}  // namespace pv
