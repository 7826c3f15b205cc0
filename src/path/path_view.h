#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "path/path_events.h"
#include "path/path_model.h"
#include "path/path_readout.h"
#include "path/path_snapshot.h"
#include "path/path_tool.h"
#include "util/snapshot_history.h"

namespace pv {

/// A frame is never wider or higher than this; a view that is shows nothing more.
inline constexpr std::int32_t kMaxPathFrameSide = 8192;

inline constexpr float kPathDefaultZoom = 1.2F;
inline constexpr float kPathMinZoom = 0.1F;
inline constexpr float kPathMaxZoom = 5.0F;

/// The flat view in which a path is edited: holds the path, tool, pan and zoom,
/// draws complete frames into its own pixels and turns events into edits.
///
/// Life cycle: made once, sized before every frame, given a path by setPoints or
/// load, fed with events, asked for frames; the edited path is path().getRecord().
/// readout() and the undo state may differ after any event.
///
/// Units: mouse positions, pan and frames are in device pixels. The pixel ratio
/// enlarges markers, their reach and the way of a zoom drag, and scales the pan
/// when it changes, so that at every density the same movement of the hand does
/// the same.
///
/// A drag lasts from the press of the left or middle button to its release.
/// Escape and undo() take back all it did: points, selection, pan and zoom.
/// Anything else that comes between (another tool, view or path, the focus or the
/// button lost) ends it keeping what it did; a selection rectangle is then
/// dropped, and no point is added or deleted.
class PathView {
 public:
  PathView() { path_.setSnapDivisions(snapDivisions_); }

  // --- the path ------------------------------------------------------------
  [[nodiscard]] const PathModel& path() const { return path_; }
  /// Replaces the path; nothing is selected and the undo history is empty.
  PathResponse setPoints(const PathRecord& record);
  /// Reads a path file under its full name, as one undoable step, and makes the
  /// points their own drag starts; when that fails the path stays.
  [[nodiscard]] Status load(const std::filesystem::path& fullName);
  /// Writes `name` + ".j2d".
  [[nodiscard]] Status save(const std::filesystem::path& name) const { return path_.save(name); }
  /// Removes all points, as one undoable step. Pan and zoom stay.
  PathResponse clearPath();
  /// Nothing selected, no segment highlighted.
  PathResponse clearFlags();
  PathResponse selectAll();

  // --- the view ------------------------------------------------------------
  [[nodiscard]] PathTool getTool() const { return tool_; }
  /// Values that are no tool are ignored. The page calls clearFlags() before it
  /// chooses Add.
  PathResponse setTool(PathTool tool);
  [[nodiscard]] PathAxisView axisView() const { return axes_; }
  PathResponse setAxisView(PathAxisView axes);
  void setSnapEnabled(bool enabled);
  /// Snap cells per path unit: 10, 20, 30 or 40; 10 at the start.
  void setSnapDivisions(std::int32_t divisions);
  [[nodiscard]] bool snapEnabled() const { return snapEnabled_; }
  [[nodiscard]] std::int32_t snapDivisions() const { return snapDivisions_; }
  /// Pan 0, zoom 1.2.
  PathResponse resetZoom();
  [[nodiscard]] float zoom() const { return zoom_; }
  [[nodiscard]] Vec3 pan() const { return pan_; }

  /// Size of the frame in device pixels, and how many of them make a pixel of
  /// 96 dpi (1 and up). A width of 0 with an unchanged height is ignored, so that
  /// a view that is folded away keeps its measure.
  void setSize(std::int32_t width, std::int32_t height, float pixelRatio = 1.0F);
  [[nodiscard]] std::int32_t width() const { return width_; }
  [[nodiscard]] std::int32_t height() const { return height_; }
  /// How the frame looks at path space now.
  [[nodiscard]] PathViewport viewport() const { return {width_, height_, axes_, zoom_, pan_}; }

  // --- events --------------------------------------------------------------
  /// While one button is down the other one is ignored.
  PathResponse mousePress(const PathMouse& mouse, PathMouseButton button = PathMouseButton::Left);
  PathResponse mouseMove(const PathMouse& mouse);
  PathResponse mouseRelease(const PathMouse& mouse, PathMouseButton button = PathMouseButton::Left);
  /// The pointer left the view; a drag goes on.
  PathResponse mouseLeave();
  /// Zooms about the pointer, 10 % a notch, in when positive. Ignored in a drag.
  PathResponse wheel(const PathMouse& mouse, float notches);
  PathResponse keyPress(PathKey key);
  PathResponse focusLost();
  [[nodiscard]] bool isDragging() const { return buttonDown_ || middleDown_; }
  [[nodiscard]] PathCursor cursor() const { return cursor_; }
  [[nodiscard]] std::int32_t hoveredVertex() const { return hoveredVertex_; }
  [[nodiscard]] std::int32_t hoveredSegment() const { return hoveredSegment_; }
  [[nodiscard]] bool isRubberBand() const { return rubberBand_; }
  /// The last position that a tool took, snapped while snapping is on.
  [[nodiscard]] ScreenPoint lastMouse() const { return lastMouse_; }

  // --- undo ----------------------------------------------------------------
  /// Both first cancel a drag. A step is a drag, a click or a key that changed
  /// the path, a load or a clearPath; selecting is none, but comes back with the path.
  PathResponse undo();
  PathResponse redo();
  [[nodiscard]] bool canUndo() const { return history_.canUndo(); }
  [[nodiscard]] bool canRedo() const { return history_.canRedo(); }
  /// "Move points"; empty when there is nothing.
  [[nodiscard]] std::string_view undoLabel() const { return history_.undoLabel(); }
  [[nodiscard]] std::string_view redoLabel() const { return history_.redoLabel(); }

  // --- frames and figures --------------------------------------------------
  /// Draws one complete frame: width() * height() words 0xAARRGGBB, bottom row
  /// first; empty for a size below 1. The span lives until the next call.
  std::span<const std::uint32_t> drawFrame();
  /// A lighter frame for a path that was just handed over: segments only, without
  /// pan, with the selection rectangle and the rubber band.
  std::span<const std::uint32_t> drawSegmentsFrame();
  [[nodiscard]] PathReadout readout() const;

 private:
  [[nodiscard]] PathResponse respond(bool repaint, bool pathChanged = false) const;
  void chooseCursor();
  void refreshHover();
  void forgetHover();

  PathResponse moveTool(ScreenPoint position);
  PathResponse moveGrab(ScreenPoint position);
  void startGrab(ScreenPoint position);
  bool hoverSegment(ScreenPoint position);
  /// Whether the button's drag moves or scales the selection.
  [[nodiscard]] bool dragsSelection() const;
  void dragSelection(ScreenPoint distance);
  void dragOther(ScreenPoint distance);
  void releaseTool();
  void releaseGrab(bool ctrl);
  void appendPoint();

  PathResponse pressDelete();
  PathResponse pressBackspace();
  PathResponse pressEscape();
  PathResponse pressArrow(PathKey key);
  void deleteSelected();

  /// Makes what the drag moved permanent.
  void commitDrag();
  /// Ends a drag, keeping what it did but for a selection rectangle.
  void endDrag();
  /// Takes back a drag; whether that changed the path.
  bool cancelDrag();

  [[nodiscard]] PathSnapshot snapshot() const;
  void show(const PathSnapshot& snapshot);
  PathResponse travel(const std::optional<PathSnapshot>& to, bool changed);
  void beginStep() { before_ = snapshot(); }
  /// Whether the path has changed since beginStep.
  bool endStep(std::string_view label);

  RasterCanvas startFrame();
  void drawOverlays(RasterCanvas& canvas, const PathViewport& view);

  PathModel path_;
  PathTool tool_ = PathTool::Select;
  PathAxisView axes_ = PathAxisView::Front;
  float zoom_ = kPathDefaultZoom;
  Vec3 pan_;
  bool snapEnabled_ = false;
  std::int32_t snapDivisions_ = 10;

  bool buttonDown_ = false;
  bool middleDown_ = false;
  bool rubberBand_ = false;
  bool drawMode_ = false;  ///< exactly while the tool is Draw
  std::int32_t hoveredVertex_ = -1;
  std::int32_t hoveredSegment_ = -1;
  ScreenPoint lastMouse_;
  ScreenPoint pressMouse_;
  bool grabStarted_ = false;  ///< the two below belong to the movement under way
  ScreenPoint grabStartMouse_;
  ScreenPoint grabStartPan_;  ///< whole pixels, horizontal and vertical of the view
  std::optional<ScreenPoint> pointer_;
  PathCursor cursor_ = PathCursor::Arrow;

  PathSnapshot before_;  ///< the path when the step under way began
  Vec3 pressPan_;
  float pressZoom_ = kPathDefaultZoom;
  SnapshotHistory<PathSnapshot> history_;

  std::int32_t width_ = 0;
  std::int32_t height_ = 0;
  float pixelRatio_ = 1.0F;
  std::vector<std::uint32_t> frame_;
};

}  // namespace pv
