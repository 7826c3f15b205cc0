#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <QImage>
#include <QWidget>

#include "library/library_place.h"
#include "ui/ui_context.h"

namespace pv {

class PictureButton;
class TagCloudWidget;

/// The left panel while a file is chosen from a library: a preview of the chosen
/// one and the tags to find it by. Made for 252 × 624 pixels.
class CLeftLoadTab : public QWidget {
  Q_OBJECT

 public:
  explicit CLeftLoadTab(const UiContext& context, QWidget* parent = nullptr);

  /// Loads the library's tags afresh and empties the preview.
  void open(const LibraryPlace& place, std::string_view libraryRoot);
  /// The files of the last click's filter.
  [[nodiscard]] const std::vector<std::string>& filteredFiles() const { return filteredFiles_; }

  /// Device pixels of the preview, 4:3; a picture of this size is shown unscaled.
  [[nodiscard]] QSize previewSize() const;
  /// A null image shows that no file is chosen.
  void setPreview(const QImage& picture);

  [[nodiscard]] QSize sizeHint() const override;

 signals:
  /// A click on the tags; the filter is computed.
  void command();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  const UiContext& context_;
  std::vector<std::string> filteredFiles_;
  PictureButton* preview_ = nullptr;
  TagCloudWidget* cloud_ = nullptr;
};

}  // namespace pv
