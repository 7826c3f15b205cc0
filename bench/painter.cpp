#include <benchmark/benchmark.h>
#include <optional>
#include <vector>

#include <QColor>
#include <QImage>
#include <QLine>
#include <QPainter>
#include <QPen>

#include "scenes.h"
#include "stages.h"
#include "view3d/frame_colours.h"

namespace pv::bench {

namespace {

// The segments that our own drawing draws; rows of an image count downwards.
std::vector<QLine> projectedSegments(const Scene& scene, FrameSize size) {
  SceneView scenery(scene, size);
  scenery.view.updateMesh();
  ViewProjector projector;
  projector.setSize(size.width, size.height);
  const ShapeProjection projection = benchProjection(size);
  const MeshSlot* slot = scenery.view.mesh().current();
  std::vector<std::optional<PixelPoint>> projected;
  projected.reserve(slot->position.size());
  for (std::size_t i = 0; i < slot->position.size(); ++i) {
    projected.push_back(projection.map(projector, slot->position.at(i)));
  }
  std::vector<QLine> segments;
  segments.reserve(slot->lines.size());
  for (const ShapeLine line : slot->lines) {
    const auto a = projected[line.first];
    const auto b = projected[line.second];
    if (a && b) {
      segments.emplace_back(a->x, size.height - 1 - a->y, b->x, size.height - 1 - b->y);
    }
  }
  return segments;
}

void measurePainter(benchmark::State& state, const Scene& scene, FrameSize size) {
  const std::vector<QLine> segments = projectedSegments(scene, size);
  QImage image(size.width, size.height, QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setPen(QPen(QColor::fromRgb(kShapeColour), 1));
    painter.drawLines(segments.data(), static_cast<int>(segments.size()));
    painter.end();
    benchmark::DoNotOptimize(image.constBits());
    benchmark::ClobberMemory();
  }
  state.counters["segments"] = static_cast<double>(segments.size());
}

}  // namespace

void registerPainter() {
  for (const Scene& scene : allScenes()) {
    for (const FrameSize size : kFrameSizes) {
      const std::string name = "qpainter/" + scene.name + "/" + size.name();
      benchmark::RegisterBenchmark(name.c_str(), measurePainter, scene, size)
          ->Unit(benchmark::kMillisecond);
    }
  }
}

}  // namespace pv::bench
