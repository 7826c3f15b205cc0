#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <new>
#include <span>
#include <type_traits>
#include <utility>

namespace pv {

/// A growable array of plain values that is not initialised, starts at a line of
/// the cache, keeps its memory when it shrinks, and reports a failed allocation
/// instead of throwing.
template <class T>
class Buffer {
  static_assert(std::is_trivially_copyable_v<T>);

 public:
  Buffer() = default;
  ~Buffer() = default;
  Buffer(const Buffer&) = delete;
  Buffer& operator=(const Buffer&) = delete;
  Buffer(Buffer&& other) noexcept
      : data_(std::move(other.data_)),
        size_(std::exchange(other.size_, 0)),
        capacity_(std::exchange(other.capacity_, 0)) {}
  Buffer& operator=(Buffer&& other) noexcept {
    data_ = std::move(other.data_);
    size_ = std::exchange(other.size_, 0);
    capacity_ = std::exchange(other.capacity_, 0);
    return *this;
  }

  /// The first min(old, new) values are kept. False, and empty, without memory.
  [[nodiscard]] bool resize(std::size_t size) {
    const bool wasteful = capacity_ > kSmall && size < capacity_ / kSpareRatio;
    if (size > capacity_ || wasteful) {
      Memory grown = allocate(size);
      if (!grown) {
        size_ = 0;
        return false;
      }
      std::copy_n(data_.get(), std::min(size_, size), grown.get());
      data_ = std::move(grown);
      capacity_ = size;
    }
    size_ = size;
    return true;
  }
  void clear() { size_ = 0; }

  [[nodiscard]] std::size_t size() const { return size_; }
  [[nodiscard]] bool empty() const { return size_ == 0; }
  [[nodiscard]] T* data() { return data_.get(); }
  [[nodiscard]] const T* data() const { return data_.get(); }
  [[nodiscard]] T& operator[](std::size_t i) { return data_[i]; }
  [[nodiscard]] const T& operator[](std::size_t i) const { return data_[i]; }
  [[nodiscard]] std::span<T> span() { return {data_.get(), size_}; }
  [[nodiscard]] std::span<const T> span() const { return {data_.get(), size_}; }

 private:
  static constexpr std::size_t kSmall = std::size_t{1} << 20U;  // never worth giving back
  // Every edit shrinks a mesh to one instance and grows it again to 21 at most,
  // which must not cost an allocation.
  static constexpr std::size_t kSpareRatio = 32;

  struct Free {
    void operator()(T* data) const { ::operator delete (data, std::align_val_t{kLine}); }
  };
  using Memory = std::unique_ptr<T[], Free>;

  static Memory allocate(std::size_t size) {
    if (size > std::numeric_limits<std::size_t>::max() / sizeof(T)) {
      return {};
    }
    // Plain values begin to live in the memory that they are given.
    return Memory(
        static_cast<T*>(::operator new (size * sizeof(T), std::align_val_t{kLine}, std::nothrow)));
  }

  static constexpr std::size_t kLine = 64;  // bytes
  Memory data_;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

}  // namespace pv
