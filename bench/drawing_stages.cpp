#include <benchmark/benchmark.h>

#include "ours.h"
#include "stages.h"

namespace pv::bench {

namespace {

using MakeJob = Job (*)(const ShapeRecord& shape, FrameSize size);

void measure(benchmark::State& state, MakeJob make, const Scene& scene, FrameSize size) {
  const Job job = make(makeShape(scene), size);
  for (auto _ : state) {
    job.run();
    benchmark::ClobberMemory();
  }
}

}  // namespace

void registerDrawingStages() {
  struct Stage {
    const char* name;
    MakeJob make;
  };
  for (const Stage stage :
       {Stage{"draw", ourDrawing}, Stage{"frame", ourFrame}, Stage{"still-frame", ourStillFrame}}) {
    for (const Scene& scene : allScenes()) {
      for (const FrameSize size : kFrameSizes) {
        const std::string name = stage.name + ("/" + scene.name) + "/" + size.name();
        benchmark::RegisterBenchmark(name.c_str(), measure, stage.make, scene, size)
            ->Unit(benchmark::kMillisecond)
            ->MeasureProcessCPUTime();
      }
    }
  }
}

}  // namespace pv::bench
