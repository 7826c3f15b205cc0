#include <benchmark/benchmark.h>

#include "scenes.h"
#include "stages.h"

namespace pv::bench {

namespace {

// A shape that stays, on black: puts back what the frame before drew over,
// projects and draws.
void measureDrawing(benchmark::State& state, const Scene& scene, FrameSize size) {
  SceneView scenery(scene, size);
  scenery.view.setShowGrid(false);
  for (auto _ : state) {
    benchmark::DoNotOptimize(scenery.view.drawFrame().data());
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
