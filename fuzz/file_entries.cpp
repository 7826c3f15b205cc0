#include <algorithm>

#include "entries.h"
#include "path/path_file.h"
#include "require.h"
#include "shape/shape_file.h"

namespace pv::fuzz {

namespace {

template <class Decode, class Encode>
void checkFile(std::span<const std::byte> bytes, std::size_t fileSize, Decode decode,
               Encode encode) {
  const auto decoded = decode(bytes);
  if (!decoded) {
    require(!decoded.error().reason.empty(), "a refusal gives its reason");
    return;
  }
  const auto& record = decoded.value();
  require(bytes.size() >= fileSize, "a file that is too short is refused");
  const auto encoded = encode(record);
  require(encoded.size() == fileSize, "an encoded file has its exact size");
  require(std::ranges::equal(encoded, bytes.first(fileSize)), "encoding gives the bytes back");

  const auto again = decode(encoded);
  require(again.ok(), "what was encoded decodes");
  const bool holdsNaN = !(record == record);
  require(holdsNaN || again.value() == record, "decoding again gives the same record");
}

}  // namespace

void runShapeFile(std::span<const std::byte> bytes) {
  checkFile(bytes, kShapeFileBytes, decodeShapeFile, encodeShapeFile);
  if (const auto shape = decodeShapeFile(bytes)) {
    static_cast<void>(totalEmitterCount(shape.value().emitter));
  }
}

void runPathFile(std::span<const std::byte> bytes) {
  checkFile(bytes, kPathFileBytes, decodePathFile, encodePathFile);
}

}  // namespace pv::fuzz
