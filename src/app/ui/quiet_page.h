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

/// A panel with a one-pixel border, and a title bar where it has a title: what the
/// panel shows, the name of what is shown, and a detail of it.
class PanelFrame : public QWidget {
  Q_OBJECT

 public:
  PanelFrame(const UiContext& context, QWidget* parent = nullptr);
  void setTitle(const QString& title);
  /// Behind the title, cut in its middle where it does not fit.
  void setName(const QString& name);
  /// At the right end of the bar.
  void setDetail(const QString& detail);
  [[nodiscard]] const QString& name() const { return name_; }
  [[nodiscard]] const QString& detail() const { return detail_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QRect titleBar() const;
  void paintTitle(QPainter& painter) const;

  const UiContext& context_;
  QString title_;
  QString name_;
  QString detail_;
};

}  // namespace pv
