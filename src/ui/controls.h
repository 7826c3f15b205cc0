#pragma once

#include <string>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QWidget>

#include "ui/pixel_painter.h"
#include "ui/ui_context.h"

namespace pv {

/// A dark title bar over a group of controls, inside its contents margins; with an
/// image before the text where it has one.
class SectionHeader : public QWidget {
  Q_OBJECT

 public:
  SectionHeader(const UiContext& context, const QString& text, QWidget* parent = nullptr);
  void setText(const QString& text);
  void setImage(std::string image);
  [[nodiscard]] const QString& text() const { return text_; }
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const UiContext& context_;
  QString text_;
  SkinImage image_;
};

/// A box with a tick and a text.
class CheckBox : public QAbstractButton {
  Q_OBJECT

 public:
  CheckBox(const UiContext& context, const QString& text, const QString& help,
           QWidget* parent = nullptr);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  const UiContext& context_;
  bool ring_ = false;
};

/// A button that shows a text. Like image buttons it never checks itself.
class TextButton : public QAbstractButton {
  Q_OBJECT

 public:
  TextButton(const UiContext& context, const QString& text, const QString& help,
             QWidget* parent = nullptr);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void nextCheckState() override {}

 private:
  const UiContext& context_;
  bool ring_ = false;
};

/// A line of text; wraps when it is told to.
class TextLabel : public QLabel {
  Q_OBJECT

 public:
  TextLabel(const UiContext& context, const QString& text, QWidget* parent = nullptr);
};

/// A field for a line of text. Enter is told apart from other changes and selects
/// the text.
class EditBox : public QLineEdit {
  Q_OBJECT

 public:
  EditBox(const UiContext& context, const QString& name, QWidget* parent = nullptr);
  [[nodiscard]] QSize sizeHint() const override;

 signals:
  void enterPressed();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  const UiContext& context_;
};

}  // namespace pv
