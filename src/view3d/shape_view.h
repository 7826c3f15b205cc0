#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "shape/generation.h"
#include "shape/modifiers.h"
#include "shape/shape_columns.h"
#include "shape/shape_record.h"
#include "util/work_share.h"
#include "view3d/handle_drag.h"
#include "view3d/shape_painter.h"
#include "view3d/view_camera.h"
#include "view3d/view_frame.h"
#include "view3d/view_projector.h"

namespace pv {

/// A frame is never wider or higher than this; a view that is shows nothing more.
inline constexpr std::int32_t kMaxFrameSide = 8192;

/// What a view asks of its shell after an event.
struct ViewResponse {
  bool repaint = false;
  bool cameraChanged = false;
  bool modifierChanged = false;
};

/// The view of the current shape: holds the shape's settings, its mesh, the
/// modifier set, camera and switches, draws complete frames into its own pixels
/// and turns mouse events into camera and modifier changes.
///
/// Life cycle: made once, sized before the first frame, fed with records and
/// events, asked for frames. Mouse positions are in pixels of 96 dpi from the
/// upper left corner; frames are in device pixels, bottom row first.
class ShapeView {
 public:
  // --- the shape -----------------------------------------------------------
  /// Takes over all settings, the path and the modifier values, then
  /// regenerates through SetEmitterKind.
  void setShape(const ShapeRecord& shape);
  /// The settings of the last setShape with the modifier values as they are now.
  [[nodiscard]] ShapeRecord shape() const;
  /// Kinds outside 0..4 are ignored. Otherwise stores the kind, refreshes the
  /// mesh's profile from the path and generates.
  ViewResponse SetEmitterKind(std::int32_t kind);

  [[nodiscard]] const ModifierTable& modifiers() const { return set_.values; }
  void setModifiers(const ModifierTable& values);
  [[nodiscard]] ModifierKind SelectedModifier() const { return set_.selected; }
  /// Presses a modifier's button: selects it, or deselects it when it is selected.
  ViewResponse toggleModifier(ModifierKind kind);
  ViewResponse SelectModifier(ModifierKind kind);
  ViewResponse ResetSelectedModifier();
  ViewResponse ResetAllModifiers();

  // --- the view ------------------------------------------------------------
  [[nodiscard]] ViewMode viewMode() const { return mode_; }
  ViewResponse setViewMode(ViewMode mode);
  [[nodiscard]] CameraTool cameraTool() const { return tool_; }
  void setCameraTool(CameraTool tool) { tool_ = tool; }
  [[nodiscard]] const ViewCamera& camera() const { return camera_; }
  ViewResponse setCamera(const ViewCamera& camera);
  [[nodiscard]] bool showLines() const { return showLines_; }
  ViewResponse setShowLines(bool on);
  [[nodiscard]] bool showGrid() const { return showGrid_; }
  ViewResponse setShowGrid(bool on);

  /// Size of the frame in device pixels, and how many of them make a pixel of
  /// 96 dpi (1 and up; text, handles and dots grow with it).
  void setSize(std::int32_t width, std::int32_t height, float pixelRatio = 1.0F);
  [[nodiscard]] std::int32_t width() const { return width_; }
  [[nodiscard]] std::int32_t height() const { return height_; }

  // --- the mouse -----------------------------------------------------------
  ViewResponse mousePress(PixelPoint position);
  ViewResponse mouseMove(PixelPoint position);
  ViewResponse mouseRelease();
  [[nodiscard]] Handle activeHandle() const { return drag_.active; }
  [[nodiscard]] bool isHandleDrag() const { return drag_.handleDrag; }

  // --- frames --------------------------------------------------------------
  /// Draws one complete frame: width() * height() words 0xAARRGGBB, bottom row
  /// first. The span lives until the next call.
  std::span<const std::uint32_t> drawFrame();

  /// The generated mesh: after updateMesh() the whole of it, otherwise only its
  /// profile and sizes; a frame keeps no vertices.
  [[nodiscard]] const ShapeMesh& mesh() const { return mesh_; }
  /// Builds the whole mesh as the next frame would show it, without drawing; for
  /// the random sequence it counts as a frame.
  void updateMesh();
  /// Vertices of the last frame, copies included; 0 also when there was no memory.
  [[nodiscard]] std::size_t drawnVertices() const {
    return columns_.rows() * columns_.columns() * columns_.instances();
  }
  /// What drawFrame does before it draws: brings the columns up to date.
  const ShapeColumns& updateColumns();
  [[nodiscard]] const ViewProjector& projector() const { return projector_; }
  /// How many threads a large frame may use, this one counted in; 0 for as many
  /// as the machine has processors.
  void setThreads(unsigned threads) { share_ = WorkShare(threads); }
  /// Meshes above this are not built (tests and small machines).
  void setVertexLimit(std::int64_t limit) { mesh_.setVertexLimit(limit); }

 private:
  void generate(bool shown);
  void moveSequence(bool shown);
  [[nodiscard]] std::size_t instances() const;
  [[nodiscard]] BackgroundScene backgroundScene() const;
  void drawBackground(RasterCanvas& canvas, const Matrix4& view, Vec3 eye);
  void drawShape(RasterCanvas& canvas, const ShapeProjection& projection);
  [[nodiscard]] Handle hitTest(PixelPoint position);
  [[nodiscard]] Handle highlightedHandle() const;

  ShapeRecord record_;  ///< modifier values live in set_, not here
  ModifierSet set_;
  EmitterKind kind_ = EmitterKind::Point;  ///< the last kind that was accepted
  std::vector<Vec3> profile_;              ///< the path's points when the kind was set
  ShapeMesh mesh_;
  ShapeSections sections_;
  RandomDirections directions_;  ///< none while Vertex Disperse shows none
  CRandSequence random_;
  ShapeColumns columns_;
  WorkShare share_;
  ShapePainter painter_;
  bool sectionsAreCurrent_ = false;
  bool sourceChanged_ = false;  ///< since the columns were last brought up to date

  ViewMode mode_ = ViewMode::Perspective;
  ViewCamera camera_;
  CameraTool tool_ = CameraTool::Zoom;
  bool showLines_ = true;
  bool showGrid_ = true;

  ViewProjector projector_;
  HandleDrag drag_;
  std::int32_t width_ = 0;
  std::int32_t height_ = 0;
  float pixelRatio_ = 1.0F;
  ViewFrame frame_;
};

}  // namespace pv
