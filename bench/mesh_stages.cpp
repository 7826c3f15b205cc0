#include <benchmark/benchmark.h>

#include "scenes.h"
#include "shape/duplicates.h"
#include "shape/generation.h"
#include "shape/modifiers.h"
#include "stages.h"

namespace pv::bench {

namespace {

EmitterSettings single(EmitterSettings emitter) {
  emitter.copies = 0;
  return emitter;
}

void measureGeneration(benchmark::State& state, const Scene& scene) {
  const ShapeRecord shape = makeShape(scene);
  ShapeMesh mesh;
  CRandSequence random;
  for (auto _ : state) {
    GenerateShape(mesh, single(shape.emitter), shape.duplicates, random, Directions::SkipOnly);
    benchmark::ClobberMemory();
  }
}

// Generation of the shape with its copies; less the generation stage it is the
// duplication alone.
void measureDuplication(benchmark::State& state, const Scene& scene) {
  const ShapeRecord shape = makeShape(scene);
  ShapeMesh mesh;
  CRandSequence random;
  for (auto _ : state) {
    GenerateShape(mesh, shape.emitter, shape.duplicates, random, Directions::SkipOnly);
    benchmark::ClobberMemory();
  }
}

void measureModifiers(benchmark::State& state, const Scene& scene) {
  const ShapeRecord shape = makeShape(scene);
  const ModifierTable values = toTable(shape.modifiers, shape.duplicates.bulge);
  const DuplicateStep step = duplicateStep(shape.emitter, shape.duplicates);
  ShapeMesh mesh;
  CRandSequence random;
  GenerateShape(mesh, shape.emitter, shape.duplicates, random, Directions::Draw);
  for (auto _ : state) {
    ApplyModifiers(mesh, values, step,
                   {shape.applyModifiersGlobally != 0, shape.useWorldAxis != 0});
    benchmark::ClobberMemory();
  }
}

// Random directions together with the generation that they belong to.
void measureDirections(benchmark::State& state, const Scene& scene, Directions directions) {
  const ShapeRecord shape = makeShape(scene);
  ShapeMesh mesh;
  CRandSequence random;
  for (auto _ : state) {
    GenerateShape(mesh, single(shape.emitter), shape.duplicates, random, directions);
    benchmark::DoNotOptimize(random.next());  // makes a jump that was only noted
  }
}

template <class Measure, class... Args>
void add(const std::string& stage, const std::string& scene, Measure measure, Args... args) {
  benchmark::RegisterBenchmark((stage + "/" + scene).c_str(), measure, args...)
      ->Unit(benchmark::kMillisecond);
}

}  // namespace

void registerMeshStages() {
  for (const Scene& scene : allScenes()) {
    const std::string emitter = scene.name.substr(0, scene.name.find('/'));
    const bool first = scene.modifiers == Modifiers::Neutral;
    const bool copies = scene.emitter == Emitter::SphereRing;
    if (first && !copies) {
      add("generate", emitter, measureGeneration, scene);
      add("directions-drawn", emitter, measureDirections, scene, Directions::Draw);
      add("directions-skipped", emitter, measureDirections, scene, Directions::SkipOnly);
    }
    if (first && copies) {
      add("generate+duplicate", emitter, measureDuplication, scene);
    }
    add("modify", scene.name, measureModifiers, scene);
  }
}

}  // namespace pv::bench
