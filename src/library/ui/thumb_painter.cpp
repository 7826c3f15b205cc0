#include "library/ui/thumb_painter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>

#include <QFontMetricsF>
#include <QImage>
#include <QTextLayout>

namespace pv {
namespace {

constexpr double kFaceAside = 4;  // free beside a lit cell's face
constexpr double kFaceAbove = 2;
constexpr double kNameGap = 5;  // between the picture and its name
constexpr double kLine = 13;
constexpr double kIcon = 24;

QString fromUtf8(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QImage imageOf(const BmpPicture& picture) {
  QImage image(picture.width, picture.height, QImage::Format_ARGB32);
  const auto row = static_cast<std::size_t>(picture.width);
  for (int y = 0; y < image.height(); ++y) {
    const auto fromBelow = static_cast<std::size_t>(image.height() - 1 - y);
    std::memcpy(image.scanLine(y), &picture.words[fromBelow * row], row * sizeof(QRgb));
  }
  return image;
}

}  // namespace

QColor warningColour() {
  return {0xE8, 0x40, 0x4A};
}

QStringList nameLines(const QString& name, const QFont& font, double width) {
  const QFontMetricsF metrics(font);
  if (metrics.horizontalAdvance(name) <= width) {
    return {name};
  }
  QTextOption wrap;
  wrap.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  QTextLayout layout(name, font);
  layout.setTextOption(wrap);
  layout.beginLayout();
  QTextLine first = layout.createLine();
  first.setLineWidth(width);
  layout.endLayout();
  const QString rest = name.mid(first.textLength());
  return {name.left(first.textLength()).trimmed(),
          metrics.elidedText(rest, Qt::ElideMiddle, width)};
}

QPixmap scaledPicture(const BmpPicture& picture, double scale) {
  if (picture.width < 1 || picture.height < 1) {
    return {};
  }
  const QImage image = imageOf(picture);
  const QSize pixels = (QSizeF(image.size()) * scale).toSize().expandedTo({1, 1});
  const QImage whole = image.scaled(image.size() * std::max(1, static_cast<int>(std::ceil(scale))));
  return QPixmap::fromImage(whole.size() == pixels ? whole
                                                   : whole.scaled(pixels, Qt::IgnoreAspectRatio,
                                                                  Qt::SmoothTransformation));
}

ThumbPainter::ThumbPainter(const UiContext& context) : context_(context), font_(context.skin.font) {
  font_.setFamilies({"MS Sans Serif", "Microsoft Sans Serif", "DejaVu Sans"});
}

void ThumbPainter::setExtension(std::string_view extension) {
  placeholder_.setName(extension == ".j2d" ? "/bin/program/library-2d.png"
                                           : "/bin/program/tab-wire.png");
}

void ThumbPainter::paintGround(PixelPainter& painter) const {
  painter.fill(painter.bounds(), fieldColour(context_.skin));
}

void ThumbPainter::paintCell(PixelPainter& painter, const ThumbCell& cell) {
  paintFace(painter, cell);
  paintPicture(painter, cell);
  paintName(painter, cell);
  if (cell.deletes && (cell.hovered || cell.selected)) {
    paintCross(painter, cell.picture);
  }
}

void ThumbPainter::paintFace(PixelPainter& painter, const ThumbCell& cell) const {
  if (!cell.selected && !cell.hovered) {
    return;
  }
  const Skin& skin = context_.skin;
  const QColor lit = cell.deletes ? warningColour() : skin.selected;
  const QColor ground = Skin::hovered(fieldColour(skin));
  const bool tinted = cell.selected || cell.deletes;
  const QColor face = tinted ? mixed(ground, lit, 0.12) : ground;
  const QRect box =
      painter.pixels(cell.box.adjusted(kFaceAside, kFaceAbove, -kFaceAside, -kFaceAbove));
  painter.box(box, face, cell.selected ? lit : cell.deletes ? mixed(face, lit, 0.6) : face);
  if (cell.selected) {
    const int line = painter.line();
    painter.box(box.adjusted(line, line, -line, -line), Qt::transparent, lit);
  }
}

void ThumbPainter::paintPicture(PixelPainter& painter, const ThumbCell& cell) {
  const Skin& skin = context_.skin;
  QRect place = painter.pixels(cell.picture);
  const int line = painter.line();
  const QColor ground = mixed(skin.title, Qt::black, 0.25);
  const QColor frame = mixed(skin.panel, skin.button, cell.hovered || cell.selected ? 0.35 : 0.12);
  painter.box(place.adjusted(-line, -line, line, line), ground, frame);
  if (cell.bits != nullptr) {
    const QPixmap pixmap = scaledPicture(*cell.bits, painter.scale());
    place.setSize(pixmap.size());
    painter.picture(place, pixmap);
  } else if (cell.loaded) {
    QRectF icon(0, 0, kIcon, kIcon);
    icon.moveCenter(cell.picture.center());
    placeholder_.paint(painter, context_.images, icon, mixed(ground, skin.button, 0.55));
  }
}

void ThumbPainter::paintName(PixelPainter& painter, const ThumbCell& cell) const {
  const Skin& skin = context_.skin;
  const QColor colour = cell.selected || cell.hovered ? brightColour(skin) : skin.text;
  const QRectF room = cell.box.adjusted(2 * kFaceAside, 0, -2 * kFaceAside, 0);
  QRectF line(room.left(), cell.picture.bottom() + kNameGap, room.width(), kLine);
  const QStringList lines = nameLines(fromUtf8(cell.name), font_, room.width());
  for (const QString& text : lines) {
    // A hair wider than what was measured, so that it is never cut once more.
    painter.text(line.adjusted(-1, 0, 1, 0), Qt::AlignHCenter, text, colour, font_);
    line.translate(0, kLine);
  }
}

void ThumbPainter::paintCross(PixelPainter& painter, const QRectF& picture) const {
  constexpr double kSize = 16;
  constexpr double kArm = 3.5;
  const QRectF badge(picture.right() - kSize - 4, picture.top() + 4, kSize, kSize);
  const QRectF disc(painter.pixels(badge));
  painter.disc(disc, warningColour());
  const double arm = kArm * painter.scale();
  for (const double side : {-1.0, 1.0}) {
    const QPointF tip(arm, arm * side);
    painter.stroke({{disc.center() - tip, disc.center() + tip}}, 1.5 * painter.scale(), Qt::white);
  }
}

void ThumbPainter::paintHint(PixelPainter& painter, const QRectF& box, const QString& text) const {
  painter.text(box, Qt::AlignHCenter, text, context_.skin.text, context_.skin.font);
}

void ThumbPainter::paintBorder(PixelPainter& painter, bool focus, bool deletes) const {
  const Skin& skin = context_.skin;
  const QColor border = deletes ? warningColour() : mixed(skin.panel, skin.button, 0.35);
  painter.box(painter.bounds(), Qt::transparent, border);
  if (focus) {
    painter.focusRing(painter.bounds());
  }
}

}  // namespace pv
