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
  std::vector<PixelPoint> projected;
};

void measureProjection(benchmark::State& state, const Scene& scene, FrameSize size) {
  const SceneView scenery(scene, size);
  const ShapeProjection projection = benchProjection(size);
  Canvas target(size);
  for (auto _ : state) {
    projectMesh(scenery.view.mesh(), target.projector, projection, target.projected);
    benchmark::ClobberMemory();
  }
}

void measureDrawing(benchmark::State& state, const Scene& scene, FrameSize size) {
  const SceneView scenery(scene, size);
  const ShapeProjection projection = benchProjection(size);
  Canvas target(size);
  for (auto _ : state) {
    target.canvas.clear(0);
    projectMesh(scenery.view.mesh(), target.projector, projection, target.projected);
    drawMeshLines(target.canvas, scenery.view.mesh(), target.projected);
    benchmark::ClobberMemory();
  }
}

}  // namespace

void registerDrawingStages() {
  for (const Scene& scene : allScenes()) {
    for (const FrameSize size : kFrameSizes) {
      const std::string place = scene.name + "/" + size.name();
      benchmark::RegisterBenchmark(("project/" + place).c_str(), measureProjection, scene, size)
          ->Unit(benchmark::kMillisecond);
      benchmark::RegisterBenchmark(("draw/" + place).c_str(), measureDrawing, scene, size)
          ->Unit(benchmark::kMillisecond);
    }
  }
}

}  // namespace pv::bench
