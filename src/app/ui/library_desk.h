#pragma once

#include <string>
#include <string_view>

#include <QImage>
#include <QObject>

#include "app/modes.h"
#include "library/library_place.h"
#include "library/library_save.h"
#include "ui/ui_context.h"
#include "util/bmp_file.h"

class QWidget;

namespace pv {

class CLeftEditTab;
class CLeftLoadTab;
class CLeftSaveTab;
class CRightEditTab;
class CRightLoadTab;
class CRightSaveTab;

/// The pages of the modes that work on a library, and what their commands do to
/// each other and to the library's folder. The pages belong to the panels that
/// they are put into.
class LibraryDesk : public QObject {
  Q_OBJECT

 public:
  /// `root` is the application folder, a program path.
  LibraryDesk(const UiContext& context, std::string root, QObject* parent);

  /// Null for pages that belong to no library mode.
  [[nodiscard]] QWidget* page(LeftPage page) const;
  [[nodiscard]] QWidget* page(RightPage page) const;

  /// Shows the mode's library afresh.
  void openLoad(const ModeTraits& mode);
  void openTags(const ModeTraits& mode);
  void openSave(const ModeTraits& mode, std::string_view coreName, const BmpPicture& picture);
  /// A step between two pages of a library mode; other steps do nothing.
  void perform(ModeStep step);
  /// What the mode's way out without doing anything does, on the right page.
  void pressCancel(RightPage page);

  /// As the save panel has it; also while nothing is being saved.
  [[nodiscard]] std::string coreName() const;
  /// The file that was pressed Save for: thumbnail, then what `writeData` writes.
  [[nodiscard]] SaveReport save(const WriteDataFile& writeData) const;

  /// The load browser's choice with folder and extension; empty without one.
  [[nodiscard]] std::string chosenFile() const;
  [[nodiscard]] QSize previewSize() const;
  [[nodiscard]] qreal previewRatio() const;
  void setPreview(const QImage& picture);

 signals:
  void leftCommand(int code);
  void rightCommand(int code);
  /// Another file is chosen in the load browser, or none.
  void choiceChanged();

 private:
  void open(const ModeTraits& mode);
  void connectPages();

  std::string root_;
  LibraryPlace place_;
  CLeftSaveTab* savePanel_ = nullptr;
  CLeftLoadTab* loadPanel_ = nullptr;
  CLeftEditTab* tagPanel_ = nullptr;
  CRightSaveTab* savePage_ = nullptr;
  CRightLoadTab* loadBrowser_ = nullptr;
  CRightEditTab* tagBrowser_ = nullptr;
};

}  // namespace pv
