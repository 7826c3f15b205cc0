#pragma once

#include <string>
#include <string_view>

#include <QImage>
#include <QWidget>

#include "ui/ui_context.h"
#include "util/bmp_file.h"

class QBoxLayout;

namespace pv {

class FileNameEdit;
class NameHint;
class EditBox;
class PictureButton;
class SectionHeader;
class TextBoxButton;
class TextLabel;

/// The left panel while something is saved: the thumbnail with its text, the core
/// of the file name and the tags that were chosen on the save page. Made for 252 ×
/// 624 pixels.
class CLeftSaveTab : public QWidget {
  Q_OBJECT

 public:
  explicit CLeftSaveTab(const UiContext& context, QWidget* parent = nullptr);

  /// Shows the name and tells nobody.
  void setCoreName(std::string_view name);
  /// Trimmed and in lower case; may be empty.
  [[nodiscard]] std::string coreName() const { return coreName_; }
  /// Trimmed.
  [[nodiscard]] std::string thumbnailText() const { return thumbnailText_; }
  /// The view's picture, 96 x 72; any other size shows an empty thumbnail.
  void setPicture(const BmpPicture& picture);
  /// What is to be written: the picture, 96 x 72 in any case, with the text over it.
  [[nodiscard]] BmpPicture thumbnail() const;
  /// Empty for none.
  void setSelectedTags(const QString& tags);

  /// 1 when the user changed one of the two texts since the last call, otherwise 0.
  [[nodiscard]] int takeResult();

  [[nodiscard]] QSize sizeHint() const override;

 signals:
  /// The user changed one of the two texts.
  void command();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  SectionHeader* addHeader(QBoxLayout& column, const char* id, const QString& text);
  TextLabel* addLabel(QBoxLayout& column, const char* id, const QString& text);
  void buildThumbnail(QBoxLayout& column);
  void buildFileName(QBoxLayout& column);
  void buildTags(QBoxLayout& column);
  [[nodiscard]] QImage thumbnailImage() const;
  void showThumbnail();
  void showNameHint();
  void tell();

  const UiContext& context_;
  QImage picture_;
  std::string coreName_;
  std::string thumbnailText_;
  int result_ = 0;
  PictureButton* thumbnail_ = nullptr;
  EditBox* textEdit_ = nullptr;
  FileNameEdit* nameEdit_ = nullptr;
  NameHint* nameHint_ = nullptr;
  TextBoxButton* tags_ = nullptr;
};

}  // namespace pv
