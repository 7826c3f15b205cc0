#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace pv {

/// Two vertex indices: one straight segment of the wire mesh.
struct ShapeLine {
  std::uint32_t first = 0;
  std::uint32_t second = 0;

  bool operator==(const ShapeLine&) const = default;
};

/// The segments of a mesh. They follow from its shape, so they are counted out
/// on demand instead of being kept: for every instance first the lines along
/// the columns of `rows` vertices, then those from column to column.
class MeshLines {
 public:
  MeshLines() = default;
  MeshLines(std::size_t rows, std::size_t columns, std::size_t instances)
      : rows_(rows), columns_(columns), instances_(instances) {}

  [[nodiscard]] std::size_t size() const { return linesEach() * instances_; }
  [[nodiscard]] bool empty() const { return size() == 0; }
  [[nodiscard]] ShapeLine operator[](std::size_t i) const {
    const std::size_t along = columns_ * (rows_ - 1);
    const std::size_t instance = i / linesEach();
    const std::size_t line = i - instance * linesEach();
    const bool isAlong = line < along;
    const std::size_t vertex =
        isAlong ? line / (rows_ - 1) * rows_ + line % (rows_ - 1) : line - along;
    const std::size_t first = instance * rows_ * columns_ + vertex;
    return {static_cast<std::uint32_t>(first),
            static_cast<std::uint32_t>(first + (isAlong ? 1 : rows_))};
  }
  void clear() { *this = {}; }

  class Iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = ShapeLine;
    using difference_type = std::ptrdiff_t;
    using pointer = const ShapeLine*;
    using reference = ShapeLine;

    Iterator() = default;
    Iterator(const MeshLines* lines, std::size_t index) : lines_(lines), index_(index) {}
    ShapeLine operator*() const { return (*lines_)[index_]; }
    Iterator& operator++() {
      ++index_;
      return *this;
    }
    Iterator operator++(int) {
      const Iterator before = *this;
      ++index_;
      return before;
    }
    bool operator==(const Iterator& other) const { return index_ == other.index_; }

   private:
    const MeshLines* lines_ = nullptr;
    std::size_t index_ = 0;
  };
  [[nodiscard]] Iterator begin() const { return {this, 0}; }
  [[nodiscard]] Iterator end() const { return {this, size()}; }

 private:
  [[nodiscard]] std::size_t linesEach() const {
    return rows_ == 0 || columns_ == 0 ? 0 : columns_ * (rows_ - 1) + (columns_ - 1) * rows_;
  }

  std::size_t rows_ = 0;
  std::size_t columns_ = 0;
  std::size_t instances_ = 1;
};

}  // namespace pv
