#pragma once

#include <string>
#include <vector>

#include <QString>
#include <QWidget>

#include "ui/pixel_painter.h"
#include "ui/ui_context.h"

namespace pv {

/// One header with the image and text of the page that is showing and a mark for
/// each page. A click asks for the next page; Left and Right ask for the pages
/// beside it, Home, End and the digits for a page directly.
class PageStrip : public QWidget {
  Q_OBJECT

 public:
  struct Tab {
    QString text;
    std::string image;
  };

  PageStrip(const UiContext& context, std::vector<Tab> tabs, QWidget* parent = nullptr);

  /// Shows a tab; nobody is told.
  void setCurrent(int tab);
  [[nodiscard]] int current() const { return current_; }
  [[nodiscard]] const std::vector<Tab>& tabs() const { return tabs_; }
  [[nodiscard]] QSize sizeHint() const override;

 signals:
  void nextRequested();
  /// Counted in tabs.
  void tabRequested(int tab);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  const UiContext& context_;
  std::vector<Tab> tabs_;
  SkinImage image_;
  int current_ = 0;
  bool pressed_ = false;
  bool ring_ = false;
};

}  // namespace pv
