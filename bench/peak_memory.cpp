#include <cstdio>

#include "ours.h"
#include "reports.h"
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

int printPeakMemory() {
  constexpr double kBar = 200.0;  // MiB
  for (const Scene& scene : allScenes()) {
    if (scene.emitter == Emitter::SphereRing && scene.modifiers != Modifiers::Neutral) {
      ourFrame(makeShape(scene), kFrameSizes.back()).run();
      const double most = peakMemory();
      std::printf("peak memory after %s: %.0f MiB, bar %.0f MiB, %s\n", scene.name.c_str(), most,
                  kBar, most < kBar ? "met" : "missed");
    }
  }
  return peakMemory() < kBar ? 0 : 1;
}

}  // namespace pv::bench
