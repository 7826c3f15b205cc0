#include "library/ui/thumb_painter.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include <QFontMetricsF>
#include <QImage>
#include <QTextLayout>

namespace pv {
namespace {

constexpr double kFaceAside = 4;  // free beside a lit cell's face
constexpr double kFaceAbove = 2;
constexpr double kNameAside = 8;
constexpr double kNameGap = 5;  // between the picture and its name
constexpr double kLine = 13;
constexpr double kIcon = 24;
constexpr int kPixelsKept = 1 << 23;  // of four bytes

QString fromUtf8(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The one or two pixels of the picture that a pixel of the screen lies on.
struct Tap {
  std::size_t first = 0;
  std::size_t second = 0;
  std::uint32_t share = 0;  ///< of the second, in 1/256
};

std::vector<Tap> tapsFor(int source, int target) {
  std::vector<Tap> taps;
  for (int i = 0; i < target; ++i) {
    const int first = i * source / target;
    const int beyond = std::max(0, (i + 1) * source - (first + 1) * target);
    const int second = std::min(first + 1, source - 1);
    taps.push_back({static_cast<std::size_t>(first), static_cast<std::size_t>(second),
                    static_cast<std::uint32_t>(beyond * 256 / source)});
  }
  return taps;
}

// Two channels at a time, each with room for its eight bits of share.
std::uint32_t mixedWords(std::uint32_t a, std::uint32_t b, std::uint32_t share) {
  constexpr std::uint32_t kLanes = 0x00FF00FF;
  const std::uint32_t rest = 256 - share;
  const std::uint32_t low = ((a & kLanes) * rest + (b & kLanes) * share) >> 8;
  const std::uint32_t high = (a >> 8 & kLanes) * rest + (b >> 8 & kLanes) * share;
  return (low & kLanes) | (high & ~kLanes);
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
  // Words are also parted by signs that the toolkit does not break at.
  qsizetype cut = first.textLength();
  const auto sign = std::find_if(name.crend() - cut, name.crend(), [](QChar c) {
    return c == ' ' || c == '_' || c == '-' || c == '.';
  });
  const qsizetype word = name.crend() - sign;
  if (word > 0 && metrics.horizontalAdvance(name.mid(word)) <= width) {
    cut = word;
  }
  return {name.left(cut).trimmed(),
          metrics.elidedText(name.mid(cut).trimmed(), Qt::ElideMiddle, width)};
}

QPixmap scaledPicture(const BmpPicture& picture, double scale) {
  if (picture.width < 1 || picture.height < 1) {
    return {};
  }
  const QSize size = (QSizeF(picture.width, picture.height) * scale).toSize().expandedTo({1, 1});
  const std::vector<Tap> columns = tapsFor(picture.width, size.width());
  const std::vector<Tap> rows = tapsFor(picture.height, size.height());
  // Its pixels are opaque or nothing at all, so they can be mixed as they are.
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  const auto length = static_cast<std::size_t>(picture.width);
  const auto rowFromTop = [&](std::size_t y) {
    return &picture.words[(static_cast<std::size_t>(picture.height) - 1 - y) * length];
  };
  std::vector<std::uint32_t> between(length);
  for (int y = 0; y < size.height(); ++y) {
    const Tap& row = rows[static_cast<std::size_t>(y)];
    std::transform(rowFromTop(row.first), rowFromTop(row.first) + length, rowFromTop(row.second),
                   between.begin(), [&row](std::uint32_t a, std::uint32_t b) {
                     return mixedWords(a, b, row.share);
                   });
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (const Tap& tap : columns) {
      *line++ = mixedWords(between[tap.first], between[tap.second], tap.share);
    }
  }
  return QPixmap::fromImage(std::move(image));
}

ThumbPainter::ThumbPainter(const UiContext& context)
    : context_(context), font_(context.skin.font), pixmaps_(kPixelsKept) {
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
    const QPixmap pixmap = pixmapOf(cell.bits, painter.scale());
    place.setSize(pixmap.size());
    painter.picture(place, pixmap);
  } else if (cell.loaded) {
    QRectF icon(0, 0, kIcon, kIcon);
    icon.moveCenter(cell.picture.center());
    placeholder_.paint(painter, context_.images, icon, mixed(ground, skin.button, 0.55));
  }
}

QPixmap ThumbPainter::pixmapOf(const ThumbnailPtr& picture, double scale) {
  if (scale_ != scale) {
    pixmaps_.clear();
    scale_ = scale;
  }
  if (const Scaled* known = pixmaps_.object(picture.get()); known != nullptr) {
    return known->pixmap;
  }
  QPixmap pixmap = scaledPicture(*picture, scale);
  pixmaps_.insert(picture.get(), new Scaled{picture, pixmap},
                  qsizetype{pixmap.width()} * pixmap.height());
  return pixmap;
}

void ThumbPainter::paintName(PixelPainter& painter, const ThumbCell& cell) const {
  const Skin& skin = context_.skin;
  const QColor colour = cell.selected || cell.hovered ? brightColour(skin) : skin.text;
  const QRectF room = cell.box.adjusted(kNameAside, 0, -kNameAside, 0);
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
