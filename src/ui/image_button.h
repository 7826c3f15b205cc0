#pragma once

#include <string>

#include <QAbstractButton>

#include "ui/pixel_painter.h"
#include "ui/ui_context.h"

namespace pv {

/// A button that shows an image: flat, lighter under the pointer, orange with a
/// dark image while pressed or checked, faded while disabled. A text stands after
/// the image, or in the middle where there is none; with neither it shows its
/// name's first letters. It is checkable on demand but never
/// checks itself: pages keep their own radio groups and toggles.
class ImageButton : public QAbstractButton {
  Q_OBJECT

 public:
  /// Where the button stands in a row of joined buttons; outer corners are round.
  enum class Joint { Single, First, Middle, Last };

  /// `help` is the popup text, its first line the title; the title without its
  /// colon becomes the accessible name, the rest the accessible description.
  ImageButton(const UiContext& context, std::string image, const QString& help,
              QWidget* parent = nullptr);

  void setImage(std::string image);
  void setJoint(Joint joint);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void nextCheckState() override {}

 private:
  void paintFace(PixelPainter& painter, const QColor& tint);

  const UiContext& context_;
  SkinImage image_;
  Joint joint_ = Joint::Single;
  bool ring_ = false;
};

}  // namespace pv
