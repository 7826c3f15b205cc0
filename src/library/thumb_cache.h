#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <unordered_map>

#include "util/bmp_file.h"

namespace pv {

/// Null stands for "there is no picture", which is worth remembering as well.
using ThumbnailPtr = std::shared_ptr<const BmpPicture>;

/// Pictures by number, within a bound of bytes; the one that was longest unused
/// goes first.
class ThumbCache {
 public:
  explicit ThumbCache(std::size_t limitBytes) : limitBytes_(limitBytes) {}

  [[nodiscard]] bool contains(std::int32_t key) const { return slots_.contains(key); }
  /// Null also when the key is unknown; makes it the last used.
  [[nodiscard]] ThumbnailPtr find(std::int32_t key);
  /// Keeps at least the newest picture, however large.
  void insert(std::int32_t key, ThumbnailPtr picture);
  void clear();
  [[nodiscard]] std::size_t bytes() const { return bytes_; }
  [[nodiscard]] std::size_t size() const { return slots_.size(); }

 private:
  struct Slot {
    std::int32_t key = 0;
    ThumbnailPtr picture;
  };
  void dropOldest();

  std::size_t limitBytes_;
  std::size_t bytes_ = 0;
  std::list<Slot> order_;  ///< last used first
  std::unordered_map<std::int32_t, std::list<Slot>::iterator> slots_;
};

}  // namespace pv
