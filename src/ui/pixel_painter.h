#pragma once

#include <string>

#include <QColor>
#include <QFocusEvent>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QRect>
#include <QString>

#include "ui/ui_context.h"

namespace pv {

/// `share` of the second colour, 0 to 1, over the first.
[[nodiscard]] QColor mixed(const QColor& first, const QColor& second, double share);

/// The skin's derived shades, so that all of them follow the user's colours.
[[nodiscard]] QColor faceColour(const Skin& skin);
[[nodiscard]] QColor borderColour(const Skin& skin);
[[nodiscard]] QColor fieldColour(const Skin& skin);
[[nodiscard]] QColor brightColour(const Skin& skin);

/// Corners of a box that are round.
enum class Corners { None, All, Left, Right };

/// Paints a control in whole device pixels, so that edges are crisp at every
/// scale. Lengths are device pixels unless they are said to be the widget's. A
/// disabled widget is faded as a whole.
class PixelPainter {
 public:
  PixelPainter(QWidget& widget, const Skin& skin);
  ~PixelPainter();
  PixelPainter(const PixelPainter&) = delete;
  PixelPainter& operator=(const PixelPainter&) = delete;
  PixelPainter(PixelPainter&&) = delete;
  PixelPainter& operator=(PixelPainter&&) = delete;

  [[nodiscard]] double scale() const { return toPixels_.m11(); }
  /// The width of a one-pixel line: never below one device pixel, never blurred.
  [[nodiscard]] int line() const;
  /// A length of the widget, rounded.
  [[nodiscard]] int pixels(double length) const { return qRound(length * scale()); }
  /// A rectangle of the widget with its edges rounded.
  [[nodiscard]] QRect pixels(const QRectF& rect) const;
  [[nodiscard]] QRect bounds() const { return bounds_; }

  void fill(const QRect& box, const QColor& colour) { painter_.fillRect(box, colour); }
  void box(const QRect& box, const QColor& face, const QColor& border,
           Corners corners = Corners::All);
  void focusRing(const QRect& box, Corners corners = Corners::All);
  void disc(const QRectF& box, const QColor& colour);
  void stroke(const QPolygonF& line, double width, const QColor& colour);
  void picture(const QRect& box, const QPixmap& pixmap);
  /// One line, centred upright by the height of its capitals, cut with an
  /// ellipsis where it does not fit. The box is the widget's.
  void text(const QRectF& box, Qt::AlignmentFlag align, const QString& text, const QColor& colour,
            const QFont& font);

 private:
  QWidget& widget_;
  const Skin& skin_;
  QImage layer_;  ///< a disabled widget's picture, faded in one go at the end
  QPainter painter_;
  QTransform toPixels_;
  QTransform logical_;  ///< makes the painter take lengths of the widget
  QPoint corner_;       ///< of the layer on the widget's device
  QRect bounds_;
};

/// One image of a control, kept at the size and in the tint that it was last
/// painted with.
class SkinImage {
 public:
  void setName(std::string name);
  [[nodiscard]] const std::string& name() const { return name_; }
  /// Centred in a rectangle of the widget; shrunk where it does not fit. An
  /// invalid tint keeps the colours. False, and nothing painted, without a file.
  bool paint(PixelPainter& painter, const ImageStore& images, const QRectF& box,
             const QColor& tint = {});

 private:
  void prepare(const ImageStore& images, double scale, const QSizeF& room, const QColor& tint);

  std::string name_;
  QPixmap pixmap_;
  QSizeF room_;
  QColor tint_;
  double scale_ = 0;
};

/// Whether a control shows its focus ring: after the keyboard brought the focus,
/// not after a click; a window that becomes active again leaves it as it was.
void noteFocus(bool& ring, const QFocusEvent& event);

}  // namespace pv
