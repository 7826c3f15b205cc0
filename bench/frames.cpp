#include <benchmark/benchmark.h>

#include "scenes.h"
#include "stages.h"

namespace pv::bench {

namespace {

// What an edit costs: the shape is handed in anew, so that nothing is reused.
void measureEditedFrame(benchmark::State& state, const Scene& scene, FrameSize size) {
  SceneView scenery(scene, size);
  for (auto _ : state) {
    scenery.view.setShape(scenery.shape);
    benchmark::DoNotOptimize(scenery.view.drawFrame().data());
    benchmark::ClobberMemory();
  }
}

// What a moved camera or a repaint costs.
void measureStillFrame(benchmark::State& state, const Scene& scene, FrameSize size) {
  SceneView scenery(scene, size);
  for (auto _ : state) {
    benchmark::DoNotOptimize(scenery.view.drawFrame().data());
    benchmark::ClobberMemory();
  }
}

}  // namespace

void registerFrames() {
  for (const Scene& scene : allScenes()) {
    for (const FrameSize size : kFrameSizes) {
      const std::string place = scene.name + "/" + size.name();
      benchmark::RegisterBenchmark(("frame/" + place).c_str(), measureEditedFrame, scene, size)
          ->Unit(benchmark::kMillisecond)
          ->MeasureProcessCPUTime();
      benchmark::RegisterBenchmark(("still-frame/" + place).c_str(), measureStillFrame, scene, size)
          ->Unit(benchmark::kMillisecond)
          ->MeasureProcessCPUTime();
    }
  }
}

}  // namespace pv::bench
