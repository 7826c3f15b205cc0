#pragma once

#include <string_view>

#include <QWidget>

#include "library/library_place.h"
#include "library/tag_editing.h"
#include "ui/ui_context.h"

class QBoxLayout;

namespace pv {

class FileNameEdit;
class NameHint;
class TagCloudWidget;
class TextButton;

/// What the save page and the tag-editing panel have in common: the field for a new
/// tag, the cloud and the button of the mode that deletes tags.
class TagEditPane : public QWidget {
  Q_OBJECT

 public:
  /// `mode` belongs to the page and outlives the pane.
  TagEditPane(const UiContext& context, TagDeleteMode& mode, QWidget* parent);

  [[nodiscard]] CTagCloud& cloud();
  [[nodiscard]] const CTagCloud& cloud() const;
  [[nodiscard]] TagCloudWidget& view() { return *view_; }
  /// The row below the cloud, behind Delete Tag.
  [[nodiscard]] QBoxLayout& row() { return *row_; }

  /// Loads the tags afresh, ends the delete mode and empties the field.
  void open(const LibraryPlace& place, std::string_view libraryRoot);
  /// Shows tags, states and delete mode as they are now.
  void refresh();

 signals:
  /// A click on the cloud, after its click rule.
  void tagClicked();
  /// The delete mode began or ended; every state was cleared.
  void deleteToggled();

 private:
  void buildEdit(QBoxLayout& column);
  void buildCloud(QBoxLayout& column);
  void addTag();
  void showNameHint();

  const UiContext& context_;
  TagDeleteMode& mode_;
  FileNameEdit* edit_ = nullptr;
  NameHint* hint_ = nullptr;
  TagCloudWidget* view_ = nullptr;
  TextButton* delete_ = nullptr;
  QBoxLayout* row_ = nullptr;
};

}  // namespace pv
