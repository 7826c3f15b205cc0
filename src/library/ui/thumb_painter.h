#pragma once

#include <string>
#include <string_view>

#include <QCache>
#include <QFont>
#include <QPixmap>
#include <QRectF>
#include <QStringList>

#include "library/thumb_cache.h"
#include "ui/pixel_painter.h"
#include "ui/ui_context.h"
#include "util/bmp_file.h"

namespace pv {

/// For what cannot be undone; the same in every colour scheme.
[[nodiscard]] QColor warningColour();

/// A name on one line or two: broken between words where that is possible, cut in
/// the middle of what is left where it is too long, since names end in numbers.
[[nodiscard]] QStringList nameLines(const QString& name, const QFont& font, double width);

/// A picture for a screen of that many pixels to one of 96 dpi. Whole scales repeat
/// its pixels. Between them each pixel of the screen takes the average of what it
/// lies on: hard edges stay within one pixel, and no row is wider than another.
[[nodiscard]] QPixmap scaledPicture(const BmpPicture& picture, double scale);

/// One cell to paint, in the widget's pixels.
struct ThumbCell {
  QRectF box;
  QRectF picture;
  std::string_view name;
  bool loaded = false;  ///< false: only the frame is shown
  ThumbnailPtr bits;    ///< null while loaded: there is no picture
  bool selected = false;
  bool hovered = false;
  bool deletes = false;  ///< a click deletes
};

/// Paints the cells of a thumbnail list and what stands instead of them.
class ThumbPainter {
 public:
  explicit ThumbPainter(const UiContext& context);

  /// ".j2d" or ".j3d": chooses the drawing that stands for a missing picture.
  void setExtension(std::string_view extension);
  [[nodiscard]] const QFont& font() const { return font_; }

  void paintGround(PixelPainter& painter) const;
  void paintCell(PixelPainter& painter, const ThumbCell& cell);
  /// A quiet line in the middle.
  void paintHint(PixelPainter& painter, const QRectF& box, const QString& text) const;
  void paintBorder(PixelPainter& painter, bool focus, bool deletes) const;

 private:
  void paintFace(PixelPainter& painter, const ThumbCell& cell) const;
  void paintPicture(PixelPainter& painter, const ThumbCell& cell);
  void paintName(PixelPainter& painter, const ThumbCell& cell) const;
  [[nodiscard]] QPixmap pixmapOf(const ThumbnailPtr& picture, double scale);
  void paintCross(PixelPainter& painter, const QRectF& picture) const;

  const UiContext& context_;
  QFont font_;
  SkinImage placeholder_;
  /// Pictures ready for the screen; the owner keeps the key unique.
  struct Scaled {
    ThumbnailPtr owner;
    QPixmap pixmap;
  };
  QCache<const BmpPicture*, Scaled> pixmaps_;
  double scale_ = 0;  ///< that they are made for
};

}  // namespace pv
