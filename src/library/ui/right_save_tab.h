#pragma once

#include <string>
#include <string_view>

#include <QWidget>

#include "library/library_place.h"
#include "library/tag_editing.h"
#include "ui/ui_context.h"

namespace pv {

class TagEditPane;

/// The right panel while something is saved: the library's tags to choose from,
/// adding and deleting tags, and the buttons that end the mode. Save does the first
/// half of a save (number, ".tdb", links); thumbnail and data file are its owner's,
/// who then has the ".tag" files written with writeTags.
class CRightSaveTab : public QWidget {
  Q_OBJECT

 public:
  explicit CRightSaveTab(const UiContext& context, QWidget* parent = nullptr);
  /// Writes the tags that are not on the disk yet.
  ~CRightSaveTab() override;
  CRightSaveTab(const CRightSaveTab&) = delete;
  CRightSaveTab& operator=(const CRightSaveTab&) = delete;
  CRightSaveTab(CRightSaveTab&&) = delete;
  CRightSaveTab& operator=(CRightSaveTab&&) = delete;

  /// Loads the library's tags afresh; nothing is selected, no name is saved.
  /// `libraryRoot` takes the place of a folder that does not exist.
  void open(const LibraryPlace& place, std::string_view libraryRoot);
  /// What the next Save builds the numbered name from, trimmed and in lower case.
  void setCoreName(std::string_view name);

  /// With two blanks between; empty when no tag is selected.
  [[nodiscard]] QString selectedTags() const;
  /// Numbered name of the last Save; empty when nothing is to be written.
  [[nodiscard]] const std::string& savedName() const { return savedName_; }
  /// Every ".tag" file. False when some could not be written.
  bool writeTags();

  /// 1 the selected tags changed, 2 Cancel Save, 3 Save; 0 when that was read.
  [[nodiscard]] int takeResult();
  void pressCancel();

  [[nodiscard]] QSize sizeHint() const override;

 signals:
  void command();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void buildRow();
  void tell(int result);
  void tagClicked();
  void save();

  const UiContext& context_;
  LibraryPlace place_;
  TagDeleteMode deleteMode_;
  std::string coreName_;
  std::string savedName_;
  int result_ = 0;
  TagEditPane* pane_ = nullptr;
};

}  // namespace pv
