#include "library/thumb_cache.h"

#include <utility>

namespace pv {
namespace {

std::size_t bytesOf(const ThumbnailPtr& picture) {
  return picture ? picture->words.size() * sizeof(std::uint32_t) : 0;
}

}  // namespace

ThumbnailPtr ThumbCache::find(std::int32_t key) {
  const auto found = slots_.find(key);
  if (found == slots_.end()) {
    return nullptr;
  }
  order_.splice(order_.begin(), order_, found->second);
  return order_.front().picture;
}

void ThumbCache::insert(std::int32_t key, ThumbnailPtr picture) {
  if (const auto old = slots_.find(key); old != slots_.end()) {
    bytes_ -= bytesOf(old->second->picture);
    order_.erase(old->second);
    slots_.erase(old);
  }
  bytes_ += bytesOf(picture);
  order_.push_front({key, std::move(picture)});
  slots_[key] = order_.begin();
  while (bytes_ > limitBytes_ && order_.size() > 1) {
    dropOldest();
  }
}

void ThumbCache::clear() {
  slots_.clear();
  order_.clear();
  bytes_ = 0;
}

void ThumbCache::dropOldest() {
  bytes_ -= bytesOf(order_.back().picture);
  slots_.erase(order_.back().key);
  order_.pop_back();
}

}  // namespace pv
