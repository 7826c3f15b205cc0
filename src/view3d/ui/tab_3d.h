#pragma once

#include <array>

#include <QWidget>

#include "ui/image_button.h"
#include "ui/ui_context.h"
#include "view3d/ui/shape_view_widget.h"
#include "view3d/ui/tab_3d_layout.h"

namespace pv {

/// The page around the shape view: camera tools, views, grid and lines, the
/// fifteen modifiers and their resets. All that they choose lives in the view;
/// the buttons only show it.
class CTab3d : public QWidget {
  Q_OBJECT

 public:
  explicit CTab3d(const UiContext& context, QWidget* parent = nullptr);

  [[nodiscard]] ShapeViewWidget& view() { return *view_; }
  [[nodiscard]] const ShapeViewWidget& view() const { return *view_; }

  /// Shows a shape: settings, path and modifier values.
  void setShape(const ShapeRecord& shape);
  /// The shape that was set, with the modifier values as they are now.
  [[nodiscard]] ShapeRecord shape() const { return view_->view().shape(); }
  /// Lights the buttons for what the view has chosen; for callers that choose there.
  void showChoices();

  [[nodiscard]] QSize sizeHint() const override;

 signals:
  /// The user changed a modifier's values.
  void modifierChanged();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void press(const Tab3dButton& button);
  [[nodiscard]] bool isChosen(const Tab3dButton& button) const;

  const UiContext& context_;
  ShapeViewWidget* view_ = nullptr;
  std::array<ImageButton*, kTab3dButtonCount> buttons_{};
};

}  // namespace pv
