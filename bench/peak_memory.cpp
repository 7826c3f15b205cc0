#include "peak_memory.h"

#include <cstdio>

#include "scenes.h"

#ifndef _WIN32
#include <sys/resource.h>
#endif

namespace pv::bench {

namespace {

/// In MiB; 0 where the system does not tell.
double peakMemory() {
#ifdef _WIN32
  return 0.0;
#else
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
#ifdef __APPLE__
  constexpr double kUnitsPerMiB = 1024.0 * 1024.0;
#else
  constexpr double kUnitsPerMiB = 1024.0;
#endif
  return static_cast<double>(usage.ru_maxrss) / kUnitsPerMiB;
#endif
}

}  // namespace

void printPeakMemory() {
  for (const Scene& scene : allScenes()) {
    if (scene.emitter == Emitter::SphereRing && scene.modifiers != Modifiers::Neutral) {
      SceneView scenery(scene, kFrameSizes.back());
      static_cast<void>(scenery.view.drawFrame());
      std::printf("peak memory after %s: %.0f MiB\n", scene.name.c_str(), peakMemory());
    }
  }
}

}  // namespace pv::bench
