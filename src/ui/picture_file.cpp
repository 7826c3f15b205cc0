#include "ui/picture_file.h"

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>

#include "util/files.h"

namespace pv {

// Tried as PNG first: probing for the format would load every picture plug-in.
QImage decodePicture(std::span<const std::byte> bytes) {
  const auto* data = reinterpret_cast<const char*>(bytes.data());
  QByteArray wrapped = QByteArray::fromRawData(data, static_cast<qsizetype>(bytes.size()));
  QBuffer buffer(&wrapped);
  QImageReader reader(&buffer, "png");
  reader.setAutoDetectImageFormat(false);
  QImage image = reader.read();
  return image.isNull() ? QImage::fromData(wrapped) : image;
}

QImage readPicture(const std::filesystem::path& file) {
  const auto bytes = readFile(file, kMaxPictureFile);
  return bytes ? decodePicture(bytes.value()) : QImage();
}

}  // namespace pv
