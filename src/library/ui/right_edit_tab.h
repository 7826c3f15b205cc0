#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <QWidget>

#include "ui/ui_context.h"

namespace pv {

class TextButton;
class ThumbListWidget;
class ThumbStatus;

/// The browser beside the tag-editing panel: the files of a library as thumbnails,
/// with "Finished Editing" and "Delete File". While the latter is lit a click on a
/// file deletes it; keys never do, except the Delete key.
class CRightEditTab : public QWidget {
  Q_OBJECT

 public:
  /// What takeResult() may say. kCleared also stands for "nothing is told".
  static constexpr int kCleared = 0;  ///< nothing is selected
  static constexpr int kFinished = 1;
  static constexpr int kDeleted = 2;   ///< deletedName() is gone from the disk
  static constexpr int kSelected = 3;  ///< selectedName() was chosen

  explicit CRightEditTab(const UiContext& context, QWidget* parent = nullptr);

  /// Lists root\subFolder (the root where that does not exist) anew and shows all
  /// of it; nothing is selected and delete mode is off. `filter` such as "*.j3d"
  /// holds the extension. Tells nobody.
  void open(std::string_view root, std::string_view subFolder, std::string_view filter);
  /// Shows those of the names that the folder holds, in their order. Nobody is
  /// told; a selected file that is not shown any more is no longer selected.
  void showFiles(std::span<const std::string> names);
  void showAll();

  /// Without folder and extension; empty when nothing is selected.
  [[nodiscard]] std::string selectedName() const;
  /// The file that was deleted last; empty since open() when none was.
  [[nodiscard]] const std::string& deletedName() const { return deletedName_; }
  /// Every file of the library, shown or not, in byte order.
  [[nodiscard]] const std::vector<std::string>& allNames() const;
  /// Why the page told its owner, while it does. Can be read once.
  [[nodiscard]] int takeResult();
  /// As if "Finished Editing" had been pressed.
  void pressFinish();
  [[nodiscard]] bool deleteMode() const;

  [[nodiscard]] ThumbListWidget& list() { return *list_; }
  [[nodiscard]] QSize sizeHint() const override;

 signals:
  void command();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void tell(int result);
  void fileClicked();
  void fileMoved();
  void deleteByKey();
  bool deleteSelected();
  void toggleDeleteMode();
  void setDeleteMode(bool on);
  void shown(bool filtered);

  const UiContext& context_;
  ThumbListWidget* list_ = nullptr;
  ThumbStatus* status_ = nullptr;
  TextButton* delete_ = nullptr;
  std::string deletedName_;
  int gone_ = 0;           ///< files deleted since the folder was listed
  bool filtered_ = false;  ///< showFiles() chose what is shown
  int result_ = 0;
};

}  // namespace pv
