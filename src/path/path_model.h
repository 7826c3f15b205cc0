#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>

#include "path/path_record.h"
#include "path/path_viewport.h"
#include "raster/raster_canvas.h"
#include "util/result.h"

namespace pv {

enum class PathSelection : std::uint8_t {
  Replace,  ///< selected is what lies inside
  Toggle,   ///< what lies inside changes, the rest stays
};

enum class PathScaleAxes : std::uint8_t { Both, Horizontal, Vertical };

/// A path while it is edited: points, selection, the positions on the screen and
/// the drag start. No operation but getRecord, save and load allocates.
///
/// Life cycle: filled by setPoints or load, drawn (which fixes what the hit tests
/// see), edited, read with getRecord or save. Drags compute from startPoints,
/// which setPoints and snapshotAndProjectSelected bring up to date and load
/// leaves alone.
class PathModel {
 public:
  // --- the path ------------------------------------------------------------
  void clear() { count_ = 0; }
  [[nodiscard]] std::int32_t getCount() const { return count_; }
  /// A count outside 0..512 is cut to it.
  void setPoints(const PathRecord& record);
  [[nodiscard]] PathRecord getRecord() const;
  /// Writes `name` + ".j2d".
  [[nodiscard]] Status save(const std::filesystem::path& name) const;
  /// Reads the file under its full name; when that fails the path stays.
  [[nodiscard]] Status load(const std::filesystem::path& fullName);

  /// Of the points in use, 0 <= index < getCount().
  [[nodiscard]] Vec3 point(std::int32_t index) const { return points_[slot(index)]; }
  [[nodiscard]] Vec3 startPoint(std::int32_t index) const { return startPoints_[slot(index)]; }
  [[nodiscard]] bool isSelected(std::int32_t index) const { return selected_[slot(index)]; }
  [[nodiscard]] bool isHighlighted(std::int32_t index) const { return highlighted_[slot(index)]; }
  /// x and y are whole numbers, or not numbers for a point that cannot be shown.
  [[nodiscard]] Vec3 screen(std::int32_t index) const { return screen_[slot(index)]; }

  // --- the view ------------------------------------------------------------
  /// Until the first call nothing is drawn. Markers and the reach of hit tests
  /// grow with the device pixels that make a pixel of 96 dpi (1 and up).
  void setSize(std::int32_t width, std::int32_t height, float pixelRatio = 1.0F);
  [[nodiscard]] std::int32_t width() const { return width_; }
  [[nodiscard]] std::int32_t height() const { return height_; }
  /// Snap cells per half view at zoom 1; 0 or less never snaps.
  void setSnapDivisions(std::int32_t divisions) { snapDivisions_ = divisions; }
  void setSnapEnabled(bool enabled) { snapEnabled_ = enabled; }
  /// Marks the segment that starts at a point; ignored outside the path.
  void setHighlight(std::int32_t index, bool flag);
  /// Nothing selected, nothing highlighted.
  void clearFlags();
  /// Ignored outside the path.
  void setSelected(std::int32_t index, bool flag);
  [[nodiscard]] std::int32_t selectedCount() const;

  void projectAll(const PathViewport& view);
  /// Makes the current positions of the selected points their drag start.
  void snapshotAndProjectSelected(const PathViewport& view);

  /// Index or -1, by the positions of the last projection. Of several points the
  /// last counts, of several segments the first. A segment is hit in its box.
  [[nodiscard]] std::int32_t hitVertex(ScreenPoint mouse);
  [[nodiscard]] std::int32_t hitSelectedVertex(ScreenPoint mouse);
  [[nodiscard]] std::int32_t hitSegment(ScreenPoint mouse) const;
  /// Whether the last hit test of points found one, selected or not.
  [[nodiscard]] bool vertexHover() const { return vertexHover_; }

  /// The nearest crossing of the snap grid, halves away from the view's centre;
  /// the pan does not move that grid. The same point while snapping is off.
  [[nodiscard]] ScreenPoint snapPoint(const PathViewport& view, ScreenPoint point) const;

  // --- editing -------------------------------------------------------------
  /// Two corners in any order, edges included.
  void selectInRect(const PathViewport& view, ScreenPoint a, ScreenPoint b, PathSelection how);
  /// dx, dy: pixels since the press, y down.
  void moveSelected(const PathViewport& view, std::int32_t dx, std::int32_t dy);
  /// About the path's origin; right and up enlarge.
  void scaleSelected(const PathViewport& view, std::int32_t dx, std::int32_t dy,
                     PathScaleAxes axes);
  /// At once, and as the new drag start; in path units of the view's axes.
  void shiftSelected(const PathViewport& view, float across, float up);
  void deleteSelected();
  void removeLast() { count_ -= count_ > 0 ? 1 : 0; }
  /// Halves segment `index`; false when there is none or the path is full. The
  /// points' screen positions are those of the next projection.
  bool insertAfter(std::int32_t index);
  /// Adds a point at nextVertexPixel; false when the path is full. In the top
  /// view the point shows mirrored about the horizontal centre line.
  bool appendAt(const PathViewport& view);

  /// Where appendAt puts the next point: drawing position less the pan, or, for
  /// the very first point, screen position less the pan.
  [[nodiscard]] PixelPoint nextVertexPixel() const { return nextVertexPixel_; }
  /// For the very first point.
  void setNextVertexFromMouse(const PathViewport& view, ScreenPoint mouse);
  /// For all others: as a rubber band to the mouse position would.
  void setNextVertexFromBand(const PathViewport& view, ScreenPoint mouse);

  // --- drawing -------------------------------------------------------------
  /// Grid, segments and markers. Stores the positions that it draws at.
  void draw(RasterCanvas& canvas, const PathViewport& view);
  /// The same without grid and markers.
  void drawSegments(RasterCanvas& canvas, const PathViewport& view);
  /// An outline between two corners.
  static void drawSelectionRect(RasterCanvas& canvas, ScreenPoint a, ScreenPoint b);
  /// Remembers the mouse position; when there is a point already, also places
  /// the next vertex there and draws a line to it in the canvas's colour.
  void drawRubberBand(RasterCanvas& canvas, const PathViewport& view, ScreenPoint mouse);
  /// Drawing position of the last rubber band's end.
  [[nodiscard]] PixelPoint lastMouse() const { return lastMouse_; }

 private:
  using Points = std::array<Vec3, kMaxPathPoints>;
  using Flags = std::array<bool, kMaxPathPoints>;

  [[nodiscard]] static std::size_t slot(std::int32_t index) {
    return static_cast<std::size_t>(index);
  }
  std::optional<PixelPoint> projectSlot(const PathViewport& view, std::size_t index);
  [[nodiscard]] std::optional<ScreenPoint> shownAt(std::size_t index) const;
  void clearFlags(std::size_t index);
  void drawPoints(RasterCanvas& canvas, const PathViewport& view, bool markers);
  [[nodiscard]] std::int32_t scaled(std::int32_t pixels) const;
  void drawMarker(RasterCanvas& canvas, PixelPoint at, std::size_t index) const;

  std::int32_t count_ = 0;
  Points startPoints_{};
  Points points_{};
  Points screen_{};
  Flags selected_{};
  Flags highlighted_{};
  std::int32_t width_ = -1;  ///< below 0: never sized
  std::int32_t height_ = 0;
  float pixelRatio_ = 1.0F;
  PixelPoint lastMouse_;
  PixelPoint nextVertexPixel_;
  std::int32_t snapDivisions_ = 0;
  bool snapEnabled_ = false;
  bool vertexHover_ = false;
};

}  // namespace pv
