#pragma once

#include <QWidget>

#include "ui/ui_context.h"

namespace pv {

/// A page without controls: one quiet line of text in the middle.
class QuietPage : public QWidget {
  Q_OBJECT

 public:
  QuietPage(const UiContext& context, const QString& text, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const UiContext& context_;
  QString text_;
};

/// A panel with a one-pixel border, and a title bar where it has a title.
class PanelFrame : public QWidget {
  Q_OBJECT

 public:
  PanelFrame(const UiContext& context, QWidget* parent = nullptr);
  void setTitle(const QString& title, const QString& detail);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const UiContext& context_;
  QString title_;
  QString detail_;
};

}  // namespace pv
