#include "ui/image_store.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <span>
#include <utility>
#include <vector>

#include <QBuffer>
#include <QByteArray>
#include <QCursor>
#include <QImage>
#include <QImageReader>

#include "util/files.h"
#include "util/folders.h"
#include "util/program_path.h"
#include "util/utf8_path.h"

namespace pv {
namespace {

constexpr std::size_t kMaxFileSize = std::size_t{4} << 20U;
constexpr const char* kDrawings = R"(\bin\program\)";  // below the application folder
constexpr std::array<std::string_view, 3> kSuffixes{"", "@2x", "@3x"};

// Tried as PNG first: probing for the format would load every picture plug-in.
QImage decode(std::span<const std::byte> bytes) {
  const auto* data = reinterpret_cast<const char*>(bytes.data());
  QByteArray wrapped = QByteArray::fromRawData(data, static_cast<qsizetype>(bytes.size()));
  QBuffer buffer(&wrapped);
  QImageReader reader(&buffer, "png");
  reader.setAutoDetectImageFormat(false);
  QImage image = reader.read();
  return image.isNull() ? QImage::fromData(wrapped) : image;
}

QImage read(const std::filesystem::path& file) {
  const auto bytes = readFile(file, kMaxFileSize);
  return bytes ? decode(bytes.value()) : QImage();
}

int bestSuffix(double pixelRatio) {
  return pixelRatio <= 1 ? 0 : pixelRatio <= 2 ? 1 : 2;
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

// All files NAME@2x.png for "@2x.png", by the names that they have to the program.
std::map<std::string, QImage, std::less<>> readDrawings(const std::filesystem::path& folder,
                                                        const std::string& suffix) {
  const bool dense = suffix.starts_with('@');
  std::map<std::string, QImage, std::less<>> drawings;
  std::vector<FolderEntry> entries;
  static_cast<void>(listFolder(folder, entries));
  for (const FolderEntry& entry : entries) {
    const std::string& name = entry.name;
    if (name.ends_with(suffix) && (dense || name.find('@') == std::string::npos)) {
      drawings.emplace(kDrawings + name, read(folder / pathFromUtf8(name)));
    }
  }
  return drawings;
}

}  // namespace

// Names are looked up whatever their case; what all of them begin with, once.
ImageStore::ImageStore(std::string_view applicationFolder)
    : folder_(programPath(hostPath(applicationFolder))) {}

void ImageStore::readAhead(double pixelRatio) {
  drawings_ = std::async(std::launch::async, readDrawings, hostPath(folder_ + kDrawings),
                         withSuffix(".png", bestSuffix(pixelRatio)))
                  .share();
}

QPixmap ImageStore::load(const std::string& name, double ratio) const {
  QImage image;
  if (drawings_.valid()) {
    const auto& drawings = drawings_.get();
    const auto found = drawings.find(withBackslashes(name));
    image = found != drawings.end() ? found->second : QImage();
  }
  QPixmap pixmap = QPixmap::fromImage(image.isNull() ? read(hostPath(folder_ + name)) : image);
  pixmap.setDevicePixelRatio(ratio);
  return pixmap;
}

QPixmap ImageStore::pixmap(std::string_view name, double pixelRatio) const {
  if (name.rfind('.') == std::string_view::npos) {
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
  const auto file = readFile(hostPath(folder_ + std::string(name)), kMaxFileSize);
  if (!file) {
    return {Qt::ArrowCursor};
  }
  // The pictures beside the cursor file are sharper than the system's scaling.
  const std::string stem(name.substr(0, name.rfind('.')));
  QPixmap picture = pixmap(stem + "-cursor.png", pixelRatio);
  if (picture.isNull()) {
    picture = QPixmap::fromImage(decode(file.value()));
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
