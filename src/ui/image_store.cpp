#include "ui/image_store.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include <QCursor>
#include <QImage>

#include "ui/picture_file.h"
#include "ui/pictures_ahead.h"
#include "util/files.h"
#include "util/program_path.h"

namespace pv {
namespace {

constexpr std::array<std::string_view, 3> kSuffixes{"", "@2x", "@3x"};

int bestSuffix(double pixelRatio) {
  return pixelRatio <= 1 ? 0 : pixelRatio <= 2 ? 1 : 2;
}

bool isFileName(std::string_view name) {
  return name.rfind('.') != std::string_view::npos;
}

// "snap@2x.png" for "snap.png".
std::string withSuffix(std::string_view name, int suffix) {
  const auto dot = name.rfind('.');
  return std::string(name.substr(0, dot)) +
         std::string(kSuffixes[static_cast<std::size_t>(suffix)]) + std::string(name.substr(dot));
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

// Names are looked up whatever their case; what all of them begin with, once.
ImageStore::ImageStore(std::string_view applicationFolder)
    : folder_(programPath(hostPath(applicationFolder))) {}

void ImageStore::readAhead(const std::vector<std::string>& names, double pixelRatio) {
  std::vector<std::string> paths;
  paths.reserve(names.size());
  for (const std::string& name : names) {
    if (isFileName(name)) {
      paths.push_back(folder_ + withSuffix(name, bestSuffix(pixelRatio)));
    }
  }
  ahead_ = std::make_shared<PicturesAhead>(std::move(paths));
}

QPixmap ImageStore::load(const std::string& name, double ratio) const {
  const std::string path = folder_ + name;
  const QImage read = ahead_ != nullptr ? ahead_->find(path) : QImage();
  QPixmap pixmap = QPixmap::fromImage(read.isNull() ? readPicture(hostPath(path)) : read);
  pixmap.setDevicePixelRatio(ratio);
  return pixmap;
}

QPixmap ImageStore::pixmap(std::string_view name, double pixelRatio) const {
  if (!isFileName(name)) {
    return {};
  }
  const int count = static_cast<int>(kSuffixes.size());
  const int best = bestSuffix(pixelRatio);
  QPixmap pixmap;
  for (int index = best; index < count && pixmap.isNull(); ++index) {
    pixmap = load(withSuffix(name, index), index + 1);
  }
  for (int index = best - 1; index >= 0 && pixmap.isNull(); --index) {
    pixmap = load(withSuffix(name, index), index + 1);
  }
  return pixmap;
}

QCursor ImageStore::cursor(std::string_view name, double pixelRatio) const {
  const auto file = readFile(hostPath(folder_ + std::string(name)), kMaxPictureFile);
  if (!file) {
    return {Qt::ArrowCursor};
  }
  // The pictures beside the cursor file are sharper than the system's scaling.
  const std::string stem(name.substr(0, name.rfind('.')));
  QPixmap picture = pixmap(stem + "-cursor.png", pixelRatio);
  if (picture.isNull()) {
    picture = QPixmap::fromImage(decodePicture(file.value()));
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
