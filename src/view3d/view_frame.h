#pragma once

#include <cstdint>
#include <span>

#include "raster/raster_canvas.h"
#include "shape/buffer.h"
#include "view3d/frame_cells.h"
#include "view3d/pixel_box.h"
#include "view3d/view_camera.h"

namespace pv {

/// What the background of a frame depends on.
struct BackgroundScene {
  ViewMode mode = ViewMode::Perspective;
  ViewCamera camera;
  bool showGrid = true;
  std::int32_t width = 0;  ///< of the frame, in pixels
  std::int32_t height = 0;
  std::int32_t projectorWidth = 0;  ///< may lag behind, see ViewProjector::setSize
  std::int32_t projectorHeight = 0;
  float pixelRatio = 1.0F;

  [[nodiscard]] bool isBlack() const { return !showGrid; }
  bool operator==(const BackgroundScene&) const = default;
};

/// The pixels of a view from frame to frame. What a frame draws over its
/// background lies in a box; the next frame with the same background puts it back
/// there instead of clearing and drawing everything anew.
///
///     if (frame.begin(scene)) { draw the background }
///     frame.cover(box);
///     give all pixels of frame.restored() their colour
///     frame.touch(part of the box), and draw there
class ViewFrame {
 public:
  /// True when the frame is new or was cleared to 0, and lacks its background.
  [[nodiscard]] bool begin(const BackgroundScene& scene);
  /// Keeps the background of the box, which then may be drawn over. Once a frame.
  void cover(const PixelBox& drawn);
  /// Where the frame may differ from its background, drawn over now or before; the
  /// background is there in background().
  [[nodiscard]] const PixelBox& restored() const { return restored_; }
  /// Puts the background back there.
  void restore();
  /// Notes that something is drawn over the background in a part of the box.
  void touch(const PixelBox& box);

  [[nodiscard]] std::int32_t width() const { return scene_.width; }
  [[nodiscard]] std::uint32_t* data() { return pixels_.data(); }
  /// Null while the background is 0 everywhere.
  [[nodiscard]] const std::uint32_t* background() const {
    return scene_.isBlack() ? nullptr : background_.data();
  }
  /// One for every cell: not 0 where the frame may differ from its background.
  [[nodiscard]] std::uint8_t* dirty() { return dirty_.data(); }
  [[nodiscard]] std::span<const std::uint32_t> pixels() const { return pixels_.span(); }

 private:
  void keep(const PixelBox& box);

  Buffer<std::uint32_t> pixels_;
  Buffer<std::uint32_t> background_;  ///< valid in kept_
  Buffer<std::uint8_t> dirty_;
  FrameCells cells_;
  BackgroundScene scene_;
  PixelBox covered_;  ///< drawn over by the last frame, within kept_
  PixelBox restored_;
  PixelBox kept_;
  bool isComplete_ = false;  ///< pixels_ holds the scene's background outside covered_
};

}  // namespace pv
