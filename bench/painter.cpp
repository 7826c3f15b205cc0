// The toolkit's painter, by the quickest of several ways to hand it its lines.

#include <benchmark/benchmark.h>
#include <utility>

#include <QColor>
#include <QImage>
#include <QLine>
#include <QPainter>
#include <QPen>

#include "opponents.h"
#include "round_robin.h"
#include "stages.h"
#include "view3d/frame_colours.h"

namespace pv::bench {

namespace {

/// How the image is kept, and how many lines the painter gets at a time.
struct Way {
  QImage::Format format;
  std::size_t linesAtATime;
};

class PainterSheet {
 public:
  PainterSheet(PlainMesh mesh, FrameSize size, Way way)
      : mesh_(std::move(mesh)),
        projection_(plainSetup(size)),
        image_(size.width, size.height, way.format),
        linesAtATime_(way.linesAtATime) {}

  void draw() {
    image_.fill(Qt::black);
    projectVertices(spots_, *mesh_, projection_);
    QPainter painter(&image_);
    painter.setPen(QPen(QColor::fromRgb(kShapeColour), 1));
    const int top = image_.height() - 1;  // rows of an image count downwards
    lines_.clear();
    for (const reference::Line& line : mesh_->lines) {
      const reference::Spot& a = spots_[line.first];
      const reference::Spot& b = spots_[line.second];
      if (a.visible && b.visible) {
        lines_.emplace_back(a.x, top - a.y, b.x, top - b.y);
        if (lines_.size() == linesAtATime_) {
          flush(painter);
        }
      }
    }
    flush(painter);
  }
  [[nodiscard]] std::span<const std::uint32_t> pixels() const {
    return {reinterpret_cast<const std::uint32_t*>(image_.constBits()),
            static_cast<std::size_t>(image_.width()) * static_cast<std::size_t>(image_.height())};
  }

 private:
  void flush(QPainter& painter) {
    painter.drawLines(lines_.data(), static_cast<int>(lines_.size()));
    lines_.clear();
  }

  PlainMesh mesh_;
  reference::Projection projection_;
  std::vector<reference::Spot> spots_;
  std::vector<QLine> lines_;
  QImage image_;
  std::size_t linesAtATime_;
};

Job drawingBy(const PlainMesh& mesh, FrameSize size, Way way) {
  auto sheet = std::make_shared<PainterSheet>(mesh, size, way);
  return {[sheet] { sheet->draw(); }, [sheet] { return sheet->pixels(); }};
}

// Tried once on S2, whose lines are the others' too.
Way quickestWay() {
  constexpr std::size_t kAll = SIZE_MAX;
  const PlainMesh mesh = plainMesh(makeShape("S2/neutral"));
  std::vector<Way> ways;
  std::vector<Contender> contenders;
  for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied}) {
    for (const std::size_t lines : {std::size_t{1}, std::size_t{1024}, kAll}) {
      ways.push_back({format, lines});
      contenders.emplace_back(drawingBy(mesh, kFrameSizes.front(), ways.back()).run);
    }
  }
  takeTurns(contenders);
  const auto best = std::ranges::min_element(contenders, {}, [](const Contender& contender) {
    return median(contender.timings.milliseconds);
  });
  return ways[static_cast<std::size_t>(best - contenders.begin())];
}

void measurePainter(benchmark::State& state, const Scene& scene, FrameSize size) {
  const Job job = painterDrawing(plainMesh(makeShape(scene)), size);
  clearWideRegisters();
  for (auto _ : state) {
    job.run();
    benchmark::ClobberMemory();
  }
}

}  // namespace

Job painterDrawing(const PlainMesh& mesh, FrameSize size) {
  static const Way kWay = quickestWay();
  return drawingBy(mesh, size, kWay);
}

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
