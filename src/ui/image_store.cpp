#include "ui/image_store.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include <QCursor>

#include "util/files.h"
#include "util/program_path.h"

namespace pv {
namespace {

constexpr std::size_t kMaxFileSize = std::size_t{4} << 20U;
constexpr std::array<std::string_view, 3> kSuffixes{"", "@2x", "@3x"};

QPixmap load(const std::string& programPath, double ratio) {
  QPixmap pixmap;
  if (const auto bytes = readFile(hostPath(programPath), kMaxFileSize)) {
    pixmap.loadFromData(reinterpret_cast<const uchar*>(bytes.value().data()),
                        static_cast<uint>(bytes.value().size()));
    pixmap.setDevicePixelRatio(ratio);
  }
  return pixmap;
}

// The first picture's hot spot: two 16-bit words, low byte first.
QPoint hotSpotOf(const std::vector<std::byte>& file) {
  constexpr std::size_t kOffset = 10;
  const auto word = [&file](std::size_t at) {
    return std::to_integer<int>(file[at]) + (std::to_integer<int>(file[at + 1]) << 8);
  };
  return file.size() < kOffset + 4 ? QPoint() : QPoint(word(kOffset), word(kOffset + 2));
}

}  // namespace

QPixmap ImageStore::pixmap(std::string_view name, double pixelRatio) const {
  const auto dot = name.rfind('.');
  if (dot == std::string_view::npos) {
    return {};
  }
  const auto loadAt = [&](int index) {
    const std::string file = folder_ + std::string(name.substr(0, dot)) +
                             std::string(kSuffixes[static_cast<std::size_t>(index)]) +
                             std::string(name.substr(dot));
    return load(file, index + 1);
  };
  const int count = static_cast<int>(kSuffixes.size());
  const int best = pixelRatio <= 1 ? 0 : pixelRatio <= 2 ? 1 : 2;
  QPixmap pixmap;
  for (int index = best; index < count && pixmap.isNull(); ++index) {
    pixmap = loadAt(index);
  }
  for (int index = best - 1; index >= 0 && pixmap.isNull(); --index) {
    pixmap = loadAt(index);
  }
  return pixmap;
}

QCursor ImageStore::cursor(std::string_view name, double pixelRatio) const {
  const auto file = readFile(hostPath(folder_ + std::string(name)), kMaxFileSize);
  if (!file) {
    return {Qt::ArrowCursor};
  }
  // The pictures beside the cursor file are sharper than the system's scaling.
  const std::string stem(name.substr(0, name.rfind('.')));
  QPixmap picture = pixmap(stem + "-cursor.png", pixelRatio);
  if (picture.isNull()) {
    picture.loadFromData(reinterpret_cast<const uchar*>(file.value().data()),
                         static_cast<uint>(file.value().size()));
  }
  if (picture.isNull()) {
    return {Qt::ArrowCursor};
  }
  const QSize size = picture.deviceIndependentSize().toSize();
  const QPoint hotSpot = hotSpotOf(file.value());
  return QCursor(picture, std::min(hotSpot.x(), size.width() - 1),
                 std::min(hotSpot.y(), size.height() - 1));
}

}  // namespace pv
