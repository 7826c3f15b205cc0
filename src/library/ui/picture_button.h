#pragma once

#include <string>

#include <QAbstractButton>
#include <QImage>

#include "ui/pixel_painter.h"
#include "ui/ui_context.h"

namespace pv {

/// An image button whose image is a picture that the program made, in a frame; the
/// text stands in its place while there is none.
class PictureButton : public QAbstractButton {
  Q_OBJECT

 public:
  /// Fit: as large as there is room. Whole: each pixel a square of whole device pixels,
  /// as many as there is room for.
  enum class Scaling { Fit, Whole };

  PictureButton(const UiContext& context, Scaling scaling, QWidget* parent = nullptr);
  void setPicture(const QImage& picture);
  [[nodiscard]] const QImage& picture() const { return picture_; }
  /// Inside the frame, in device pixels.
  [[nodiscard]] QSize room() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const UiContext& context_;
  Scaling scaling_;
  QImage picture_;
};

/// An image without a face, which stands before what it tells of.
class IconButton : public QAbstractButton {
  Q_OBJECT

 public:
  IconButton(const UiContext& context, std::string image, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const UiContext& context_;
  SkinImage image_;
};

/// A button that serves as a box of text of several lines, cut with an ellipsis
/// where it does not fit; then the popup help shows all of it.
class TextBoxButton : public QAbstractButton {
  Q_OBJECT

 public:
  TextBoxButton(const UiContext& context, const QString& name, const QString& placeholder,
                QWidget* parent = nullptr);
  /// Empty for the placeholder.
  void showText(const QString& text);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const UiContext& context_;
  QString name_;
  QString placeholder_;
  bool filled_ = false;
};

}  // namespace pv
