#include <benchmark/benchmark.h>

#include "raster/raster_canvas.h"
#include "scenes.h"
#include "stages.h"
#include "view3d/frame_shape.h"

namespace pv::bench {

namespace {

struct Canvas {
  explicit Canvas(FrameSize size)
      : pixels(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height)),
        canvas(pixels.data(), size.width, size.height) {
    projector.setSize(size.width, size.height);
  }
  std::vector<std::uint32_t> pixels;
  RasterCanvas canvas;
  ViewProjector projector;
};

void measureDrawing(benchmark::State& state, const Scene& scene, FrameSize size) {
  SceneView scenery(scene, size);
  const ShapeColumns& columns = scenery.view.updateColumns();
  const ShapeProjection projection = benchProjection(size);
  Canvas target(size);
  WorkShare share;
  for (auto _ : state) {
    target.canvas.clear(0);
    drawShapeLines(target.canvas, columns, target.projector, projection, share);
    benchmark::ClobberMemory();
  }
}

}  // namespace

void registerDrawingStages() {
  for (const Scene& scene : allScenes()) {
    for (const FrameSize size : kFrameSizes) {
      const std::string place = scene.name + "/" + size.name();
      benchmark::RegisterBenchmark(("draw/" + place).c_str(), measureDrawing, scene, size)
          ->Unit(benchmark::kMillisecond)
          ->MeasureProcessCPUTime();
    }
  }
}

}  // namespace pv::bench
