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

/// The load browser: the files of a library as thumbnails, with "Load" and "Cancel
/// Load". Load can be pressed exactly while a file is selected.
class CRightLoadTab : public QWidget {
  Q_OBJECT

 public:
  /// What takeResult() may say; anything else is 0.
  static constexpr int kCancel = 2;
  static constexpr int kLoad = 3;

  explicit CRightLoadTab(const UiContext& context, QWidget* parent = nullptr);

  /// Lists root\subFolder (the root where that does not exist) anew and shows all
  /// of it, nothing selected. `filter` such as "*.j3d" holds the extension.
  void open(std::string_view root, std::string_view subFolder, std::string_view filter);
  /// Shows those of the names that the folder holds, in their order.
  void showFiles(std::span<const std::string> names);

  /// Without folder and extension; empty when nothing is selected.
  [[nodiscard]] std::string selectedName() const;
  /// The whole program path; empty when nothing is selected.
  [[nodiscard]] std::string selectedFile() const;
  /// Why the page told its owner, while it does: kCancel, kLoad, otherwise 0. Can
  /// be read once.
  [[nodiscard]] int takeResult();
  /// As if "Cancel Load" had been pressed.
  void pressCancel();
  /// As if "Load" had been pressed; nothing happens while it is disabled.
  void pressLoad();

  [[nodiscard]] ThumbListWidget& list() { return *list_; }
  [[nodiscard]] QSize sizeHint() const override;

 signals:
  void command();
  /// selectedName() is another one now.
  void selectionChanged();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void tell(int result);
  void showSelection();
  void activate();

  const UiContext& context_;
  ThumbListWidget* list_ = nullptr;
  TextButton* load_ = nullptr;
  std::string toldName_;
  int result_ = 0;
};

}  // namespace pv
