// AGG's plain line without smoothing, by Bresenham's walk.

#include <agg_basics.h>
#include <agg_color_rgba.h>
#include <agg_pixfmt_rgba.h>
#include <agg_renderer_base.h>
#include <agg_renderer_primitives.h>
#include <agg_rendering_buffer.h>

#include "opponents.h"
#include "view3d/frame_colours.h"

namespace pv::bench {

namespace {

using PixelFormat = agg::pixfmt_bgra32;  // the words 0xAARRGGBB
using Renderer = agg::renderer_base<PixelFormat>;

class AggSheet {
 public:
  AggSheet(PlainMesh mesh, FrameSize size)
      : mesh_(std::move(mesh)),
        projection_(plainSetup(size)),
        pixels_(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height)),
        buffer_(reinterpret_cast<agg::int8u*>(pixels_.data()), static_cast<unsigned>(size.width),
                static_cast<unsigned>(size.height), size.width * 4),
        format_(buffer_),
        renderer_(format_) {}

  void draw() {
    renderer_.clear(agg::rgba8(0, 0, 0));
    projectVertices(spots_, *mesh_, projection_);
    agg::renderer_primitives<Renderer> primitives(renderer_);
    primitives.line_color(agg::rgb8_packed(kShapeColour));
    for (const reference::Line& line : mesh_->lines) {
      const reference::Spot& a = spots_[line.first];
      const reference::Spot& b = spots_[line.second];
      if (a.visible && b.visible) {
        primitives.line(centre(a.x), centre(a.y), centre(b.x), centre(b.y));
      }
    }
  }
  [[nodiscard]] std::span<const std::uint32_t> pixels() const { return pixels_; }

 private:
  // What renderer_primitives::coord makes of a pixel's centre, without its detour by
  // doubles. The scenes stay far inside the range.
  static int centre(std::int32_t pixel) {
    constexpr int kOne = agg::line_bresenham_interpolator::subpixel_scale;
    return pixel * kOne + kOne / 2;
  }

  PlainMesh mesh_;
  reference::Projection projection_;
  std::vector<reference::Spot> spots_;
  std::vector<std::uint32_t> pixels_;
  agg::rendering_buffer buffer_;
  PixelFormat format_;
  Renderer renderer_;
};

}  // namespace

Job aggDrawing(const PlainMesh& mesh, FrameSize size) {
  auto sheet = std::make_shared<AggSheet>(mesh, size);
  return {[sheet] { sheet->draw(); }, [sheet] { return sheet->pixels(); }};
}

}  // namespace pv::bench
