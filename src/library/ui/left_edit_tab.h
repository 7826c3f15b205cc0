#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <QPoint>
#include <QWidget>

#include "library/library_place.h"
#include "library/tag_editing.h"
#include "ui/ui_context.h"

class QBoxLayout;

namespace pv {

class NameHint;
class TagEditPane;
class TextButton;

/// The left panel while a library's tags are edited: with a file selected in the
/// browser its tags are chosen here, with none the files are found by their tags.
/// Made for 252 × 624 pixels. Ctrl+R and the tags' context menu press the hidden
/// button that rebuilds the links.
class CLeftEditTab : public QWidget {
  Q_OBJECT

 public:
  explicit CLeftEditTab(const UiContext& context, QWidget* parent = nullptr);
  /// Writes the tags that are not on the disk yet.
  ~CLeftEditTab() override;
  CLeftEditTab(const CLeftEditTab&) = delete;
  CLeftEditTab& operator=(const CLeftEditTab&) = delete;
  CLeftEditTab(CLeftEditTab&&) = delete;
  CLeftEditTab& operator=(CLeftEditTab&&) = delete;

  /// Loads the library's tags afresh, with no file selected.
  void open(const LibraryPlace& place, std::string_view libraryRoot);

  /// A value of TagPanelCode; 0 when that was read.
  [[nodiscard]] int takeResult();
  /// The files of the last ShowFiltered.
  [[nodiscard]] const std::vector<std::string>& filteredFiles() const {
    return panel_.filteredFiles();
  }

  /// The browser's selection, empty for none. Another file than before has its
  /// tags selected.
  void selectFile(std::string_view name);
  /// Selects the file's tags, also when it was selected before. Ends the delete mode.
  void applyFileTags(std::string_view name);
  /// Does what FileTagsChanged asks for with the selected file.
  void updateFileTags();
  /// Takes a deleted file out of every tag, in memory.
  void unlinkFile(std::string_view name);
  /// Does what Reconstruct asks for with the library's files. The tags of a file
  /// that is still selected are selected again, unless a click would delete them.
  void reconstruct(std::span<const std::string> names);
  /// Every ".tag" file. False when some could not be written.
  bool writeAllTags();

  [[nodiscard]] QSize sizeHint() const override;

 signals:
  void command();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void addHints(QBoxLayout& column);
  void addReconstruct();
  void tell(TagPanelCode code);
  void tagClicked();
  void showMenu(QPoint position);
  void showFile();

  const UiContext& context_;
  LibraryPlace place_;
  TagPanel panel_;
  TagPanelCode result_ = TagPanelCode::None;
  TagEditPane* pane_ = nullptr;
  TextButton* reconstruct_ = nullptr;
  NameHint* file_ = nullptr;
};

}  // namespace pv
