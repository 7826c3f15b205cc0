#include "ui/pixel_painter.h"

#include <algorithm>
#include <cmath>

#include <QFontInfo>
#include <QFontMetricsF>
#include <QPainterPath>
#include <QPixmapCache>
#include <QWidget>

namespace pv {
namespace {

// Lengths in pixels.
struct BoxLook {
  double radius = 0;
  int line = 1;
  Corners corners = Corners::All;
  QColor face;
  QColor border;
};

QPainterPath roundedPath(const QRectF& box, double radius, Corners corners) {
  const double left = corners == Corners::All || corners == Corners::Left ? radius : 0;
  const double right = corners == Corners::All || corners == Corners::Right ? radius : 0;
  QPainterPath path(QPointF(box.left() + left, box.top()));
  const auto corner = [&path](double x, double y, double size, double start) {
    if (size > 0) {
      path.arcTo(x, y, 2 * size, 2 * size, start, -90);
    } else {
      path.lineTo(x, y);
    }
  };
  corner(box.right() - 2 * right, box.top(), right, 90);
  corner(box.right() - 2 * right, box.bottom() - 2 * right, right, 0);
  corner(box.left(), box.bottom() - 2 * left, left, -90);
  corner(box.left(), box.top(), left, 180);
  path.closeSubpath();
  return path;
}

void paintBox(QPainter& painter, const QRect& box, const BoxLook& look) {
  const auto outer = roundedPath(box, look.radius, look.corners);
  const auto inner = roundedPath(box.adjusted(look.line, look.line, -look.line, -look.line),
                                 std::max(0.0, look.radius - look.line), look.corners);
  // Two areas that do not overlap, as fading would show one through the other.
  painter.fillPath(inner, look.face);
  QPainterPath frame = outer;
  frame.addPath(inner);
  frame.setFillRule(Qt::OddEvenFill);
  painter.fillPath(frame, look.border);
}

// A box that is nothing but corners, each a quarter of it: paths take five times as
// long as the straight rest, and there are few kinds of boxes.
QPixmap cornersOf(const BoxLook& look, int size) {
  const QString key =
      QString::asprintf("pv-corners %g %d %d %08x %08x", look.radius, look.line,
                        static_cast<int>(look.corners), look.face.rgba(), look.border.rgba());
  QPixmap pixmap;
  if (!QPixmapCache::find(key, &pixmap)) {
    QImage image(2 * size, 2 * size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    paintBox(painter, image.rect(), look);
    painter.end();
    pixmap = QPixmap::fromImage(std::move(image));
    QPixmapCache::insert(key, pixmap);
  }
  return pixmap;
}

QPixmap tinted(QImage image, const QColor& tint) {
  QPainter painter(&image);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(image.rect(), tint);
  painter.end();
  return QPixmap::fromImage(std::move(image));
}

}  // namespace

QColor mixed(const QColor& first, const QColor& second, double share) {
  const auto mix = [share](int a, int b) { return qRound(a + (b - a) * share); };
  return {mix(first.red(), second.red()), mix(first.green(), second.green()),
          mix(first.blue(), second.blue())};
}

QColor faceColour(const Skin& skin) {
  return mixed(skin.panel, skin.button, 0.12);
}
QColor borderColour(const Skin& skin) {
  return mixed(skin.panel, skin.title, 0.45);
}
QColor fieldColour(const Skin& skin) {
  return mixed(skin.title, skin.dialog, 0.5);
}
QColor brightColour(const Skin& skin) {
  return mixed(skin.text, Qt::white, 0.7);
}

PixelPainter::PixelPainter(QWidget& widget, const Skin& skin)
    : widget_(widget), skin_(skin), painter_(&widget), toPixels_(painter_.deviceTransform()) {
  // Its edges are rounded, as those of the toolkit's clip are: no border is cut off.
  bounds_ = pixels(QRectF(widget.rect()));
  if (!widget.isEnabled() && !bounds_.isEmpty()) {
    painter_.end();
    layer_ = QImage(bounds_.size(), QImage::Format_ARGB32_Premultiplied);
    layer_.fill(Qt::transparent);
    corner_ = bounds_.topLeft();
    toPixels_ *= QTransform::fromTranslate(-corner_.x(), -corner_.y());
    bounds_.moveTopLeft({0, 0});
    painter_.begin(&layer_);
  } else {
    painter_.setWorldTransform(toPixels_.inverted());
  }
  logical_ = layer_.isNull() ? QTransform() : toPixels_;
  painter_.setRenderHint(QPainter::Antialiasing);
}

PixelPainter::~PixelPainter() {
  painter_.end();
  if (!layer_.isNull()) {
    QPainter painter(&widget_);
    painter.setWorldTransform(painter.deviceTransform().inverted());
    painter.setOpacity(Skin::kDisabledOpacity);
    painter.drawImage(corner_, layer_);
  }
}

int PixelPainter::line() const {
  return std::max(1, static_cast<int>(std::floor(scale())));
}

QRect PixelPainter::pixels(const QRectF& rect) const {
  const QRectF mapped = toPixels_.mapRect(rect);
  const QPoint corner(qRound(mapped.left()), qRound(mapped.top()));
  return {corner, QSize(qRound(mapped.right()) - corner.x(), qRound(mapped.bottom()) - corner.y())};
}

void PixelPainter::box(const QRect& box, const QColor& face, const QColor& border,
                       Corners corners) {
  const BoxLook look{Skin::kRadius * scale(), line(), corners, face, border};
  const int size = std::max(look.line, static_cast<int>(std::ceil(look.radius)));
  const QRect inside = box.adjusted(size, size, -size, -size);
  if (inside.isEmpty()) {
    paintBox(painter_, box, look);
    return;
  }
  const QPixmap pixmap = cornersOf(look, size);
  const QSize corner(size, size);
  const int right = inside.right() + 1;
  const int bottom = inside.bottom() + 1;
  painter_.drawPixmap(box.topLeft(), pixmap, QRect({0, 0}, corner));
  painter_.drawPixmap(QPoint(right, box.top()), pixmap, QRect({size, 0}, corner));
  painter_.drawPixmap(QPoint(box.left(), bottom), pixmap, QRect({0, size}, corner));
  painter_.drawPixmap(QPoint(right, bottom), pixmap, QRect({size, size}, corner));
  const int width = inside.width();
  const int height = inside.height();
  const int rest = size - look.line;  // of a corner's side, within the border
  fill({inside.left(), box.top(), width, look.line}, border);
  fill({inside.left(), bottom + rest, width, look.line}, border);
  fill({box.left(), inside.top(), look.line, height}, border);
  fill({right + rest, inside.top(), look.line, height}, border);
  fill({inside.left(), box.top() + look.line, width, rest}, face);
  fill({inside.left(), bottom, width, rest}, face);
  fill({box.left() + look.line, inside.top(), box.width() - 2 * look.line, height}, face);
}

void PixelPainter::focusRing(const QRect& box, Corners corners) {
  // Bright with a dark line inside: it shows on grey and on orange.
  const int width = line();
  const QRect inside = box.adjusted(width, width, -width, -width);
  this->box(inside, Qt::transparent, skin_.title, corners);
  this->box(box, Qt::transparent, brightColour(skin_), corners);
}

void PixelPainter::disc(const QRectF& box, const QColor& colour) {
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(colour);
  painter_.drawEllipse(box);
}

void PixelPainter::stroke(const QPolygonF& line, double width, const QColor& colour) {
  painter_.setBrush(Qt::NoBrush);
  painter_.setPen(QPen(colour, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  painter_.drawPolyline(line);
}

void PixelPainter::picture(const QRect& box, const QPixmap& pixmap) {
  painter_.drawPixmap(box.topLeft(), pixmap);
}

void PixelPainter::text(const QRectF& box, Qt::AlignmentFlag align, const QString& text,
                        const QColor& colour, const QFont& font) {
  const QFontMetricsF metrics(font, painter_.device());
  QString shown = text;
  double width = metrics.horizontalAdvance(shown);
  if (width > box.width()) {
    shown = metrics.elidedText(text, Qt::ElideRight, box.width());
    width = metrics.horizontalAdvance(shown);
  }
  const double free = box.width() - width;
  const double x = box.left() + (align == Qt::AlignHCenter ? free / 2
                                 : align == Qt::AlignRight ? free
                                                           : 0);
  // The toolkit's own measure of capitals comes rounded up at some scales.
  constexpr double kCapitals = 0.73;
  const double y = box.center().y() + kCapitals * QFontInfo(font).pixelSize() / 2;
  const QPointF baseline = toPixels_.map(QPointF(x, y));
  painter_.save();
  painter_.setWorldTransform(logical_);
  painter_.setFont(font);
  painter_.setPen(colour);
  painter_.drawText(toPixels_.inverted().map(QPointF(qRound(baseline.x()), qRound(baseline.y()))),
                    shown);
  painter_.restore();
}

void SkinImage::setName(std::string name) {
  name_ = std::move(name);
  scale_ = 0;
}

void SkinImage::prepare(const ImageStore& images, double scale, const QSizeF& room,
                        const QColor& tint) {
  scale_ = scale;
  room_ = room;
  tint_ = tint;
  pixmap_ = name_.empty() ? QPixmap() : images.pixmap(name_, scale);
  if (pixmap_.isNull()) {
    return;
  }
  QSizeF size = pixmap_.deviceIndependentSize();
  if (size.width() > room.width() || size.height() > room.height()) {
    size.scale(room, Qt::KeepAspectRatio);
  }
  const QSize pixels = (size * scale).toSize().expandedTo({1, 1});
  QImage image = pixmap_.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(1);
  if (image.size() != pixels) {
    image = image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  }
  pixmap_ = tint.isValid() ? tinted(std::move(image), tint) : QPixmap::fromImage(image);
}

bool SkinImage::paint(PixelPainter& painter, const ImageStore& images, const QRectF& box,
                      const QColor& tint) {
  if (scale_ != painter.scale() || room_ != box.size() || tint_ != tint) {
    prepare(images, painter.scale(), box.size(), tint);
  }
  if (pixmap_.isNull()) {
    return false;
  }
  const QRect room = painter.pixels(box);
  const QPoint corner(room.left() + (room.width() - pixmap_.width()) / 2,
                      room.top() + (room.height() - pixmap_.height()) / 2);
  // The pixmap is in device pixels already, as is the painter.
  painter.picture(QRect(corner, pixmap_.size()), pixmap_);
  return true;
}

void noteFocus(bool& ring, const QFocusEvent& event) {
  switch (event.reason()) {
    case Qt::MouseFocusReason:
      ring = false;
      break;
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
      break;
    default:
      ring = true;
  }
}

}  // namespace pv
