#include "ui/frame_image.h"

#include <cstddef>
#include <cstring>

namespace pv {

QImage imageOver(std::span<const std::uint32_t> words, int width, int height) {
  const auto* bytes = reinterpret_cast<const uchar*>(words.data());
  return {bytes, width, height, static_cast<qsizetype>(width) * 4, QImage::Format_RGB32};
}

void copyFrame(std::span<const std::uint32_t> words, int width, int height, QImage& image) {
  if (image.size() != QSize(width, height)) {
    image = QImage(width, height, QImage::Format_RGB32);
  }
  const auto rowLength = static_cast<std::size_t>(width);
  for (int y = 0; y < image.height(); ++y) {
    const auto fromBelow = static_cast<std::size_t>(height - 1 - y);
    std::memcpy(image.scanLine(y), &words[fromBelow * rowLength], rowLength * sizeof(words[0]));
  }
}

QRect deviceArea(const QTransform& toDevice, QSize widget) {
  const QPoint low = toDevice.map(QPointF(0, 0)).toPoint();
  const QPoint high = toDevice.map(QPointF(widget.width(), widget.height())).toPoint();
  return {low, high - QPoint(1, 1)};
}

}  // namespace pv
