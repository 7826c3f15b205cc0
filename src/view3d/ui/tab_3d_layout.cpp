#include "view3d/ui/tab_3d_layout.h"

#include <algorithm>

#include "shape/modifier_kind.h"
#include "view3d/view_camera.h"

namespace pv {
namespace {

using enum Tab3dAction;
using enum PageEdge;
using enum ImageButton::Joint;

constexpr int kWidth = 24;  // of a button, in dialog units
constexpr int kHeight = 22;
constexpr int kRow = 318;  // where the bottom row begins

// A button of the left column; its lower two keep to the bottom.
constexpr Tab3dButton column(int id, int y, Tab3dAction action, int which, const char* image,
                             const char* help) {
  const PageEdge edge = action == Reset || action == ResetAll ? BottomLeft : TopLeft;
  return {id, {0, y, kWidth, kHeight}, edge, Single, action, which, image, help};
}

constexpr Tab3dButton column(int id, int y, ViewMode mode, const char* image, const char* help) {
  return column(id, y, View, static_cast<int>(mode), image, help);
}

constexpr Tab3dButton column(int id, int y, CameraTool tool, const char* image, const char* help) {
  return column(id, y, Tool, static_cast<int>(tool), image, help);
}

// A button of the bottom row: those for the vertices keep to the left edge, the
// last three, for the finished shape, to the right one.
constexpr Tab3dButton row(int id, int x, int width, ImageButton::Joint joint, ModifierKind kind,
                          const char* image, const char* help) {
  const bool wholeShape = kind == ModifierKind::ShapeMove || kind == ModifierKind::ShapeRotate ||
                          kind == ModifierKind::ShapeScale;
  return {id,
          {x, kRow, width, kHeight},
          wholeShape ? BottomRight : BottomLeft,
          joint,
          Modifier,
          static_cast<int>(kind),
          image,
          help};
}

}  // namespace

const std::array<Tab3dButton, kTab3dButtonCount> kTab3dButtons{{
    column(8035, 0, ViewMode::Perspective, "/bin/program/axis-3d.png",
           "Use 3d View:\nThis activates the full 3d View of the 3d Shape."),
    column(8036, 24, ViewMode::Top, "/bin/program/axis-top.png",
           "Use Top View:\nThis activates the top view of the 3d Shape."),
    column(8037, 48, ViewMode::Front, "/bin/program/axis-front.png",
           "Use Front View:\nThis activates the Front view of the 3d Shape."),
    column(8038, 72, ViewMode::Side, "/bin/program/axis-side.png",
           "Use Side View:\nThis actvates the side view of the 3d Shape."),
    column(8055, 108, ToggleGrid, 0, "/bin/program/view-grid.png",
           "Activate Grid:\nThis activates or deactivates the view grid."),
    column(8056, 132, ToggleLines, 0, "/bin/program/view-lines.png",
           "Activate 3d Shape Lines:\nThis shows the 3d shape as lines or as just the vertexes."),
    column(8031, 168, CameraTool::Rotate, "/bin/program/camera-rotate.png",
           "Camera Rotate:\nThis will rotate around the 3d view center axis.\nClick the 3d view "
           "and drag."),
    column(8032, 192, CameraTool::Roll, "/bin/program/camera-pitch.png",
           "Camera Roll:\nThis will roll the 3d view left/right.\nClick the 3d view and drag."),
    column(8033, 216, CameraTool::Zoom, "/bin/program/camera-zoom.png",
           "Camera Zoom:\nThis will zoom in/out of the 3d view.\nClick the 3d view and drag."),
    column(8034, 246, ResetCamera, 0, "/bin/program/camera-reset.png",
           "Camera Reset:\nThis will reset the camera back to its default."),
    column(8040, 290, ResetAll, 0, "/bin/program/xyz-resetall.png",
           "XYZ Reset All:\nThis will reset all modifiers to their default."),
    column(8039, kRow, Reset, 0, "/bin/program/xyz-reset.png",
           "XYZ Reset:\nThis will reset the current selected modifier to its default."),
    row(8045, 30, kWidth, First, ModifierKind::VertexMove, "/bin/program/object-move2.png",
        "Modifier - Vertex Move:\nThis will move the vertexes.\nSelect a round handle in the view "
        "and drag."),
    row(8046, 54, kWidth, Middle, ModifierKind::VertexRotate, "/bin/program/object-rotate2.png",
        "Modifier - Vertex Rotate:\nThis will rotate the vertexes.\nSelect a round handle in the "
        "view and drag."),
    row(8047, 78, kWidth, Last, ModifierKind::VertexScale, "/bin/program/object-scale2.png",
        "Modifier - Vertex Scale:\nThis will scale the vertexes.\nSelect a round handle in the "
        "view and drag."),
    row(8049, 105, kWidth, Single, ModifierKind::VertexDisperse, "/bin/program/object-disperse.png",
        "Modifier - Vertex Disperse:\nThis will disperse the vertexes in space.\nSelect a round "
        "handle in the view and drag."),
    row(8048, 132, kWidth, First, ModifierKind::PinchA, "/bin/program/object-pincha.png",
        "Modifier - Pinch A:\nThis will pinch the shape.\nSelect a round handle in the view and "
        "drag."),
    row(8051, 156, kWidth, Middle, ModifierKind::PinchB, "/bin/program/object-pinchb.png",
        "Modifier - Pinch B:\nThis will pinch the shape.\nSelect a round handle in the view and "
        "drag."),
    row(8052, 180, kWidth, Middle, ModifierKind::Taper, "/bin/program/object-taper.png",
        "Modifier - Taper:\nThis will taper the shape.\nSelect a round handle in the view and "
        "drag."),
    row(8053, 204, kWidth, Middle, ModifierKind::ShearA, "/bin/program/object-sheara.png",
        "Modifier - Shear A:\nThis will shear the shape.\nSelect a round handle in the view and "
        "drag."),
    row(8054, 228, kWidth, Middle, ModifierKind::ShearB, "/bin/program/object-shearb.png",
        "Modifier - Shear B:\nThis will shear the shape.\nSelect a round handle in the view and "
        "drag."),
    row(8050, 252, kWidth, Middle, ModifierKind::Bend, "/bin/program/object-bend.png",
        "Modifier - Bend:\nThis will bend the shape.\nSelect a round handle in the view and "
        "drag."),
    row(8044, 276, kWidth - 1, Middle, ModifierKind::Twist, "/bin/program/object-twist.png",
        "Modifier - Twist:\nThis will twist the shape.\nSelect a round handle in the view and "
        "drag."),
    row(8057, 299, kWidth, Last, ModifierKind::Bulge, "/bin/program/object-bulge.png",
        "Modifier - Bulge:\nThis will bulge the middle of the shape.\nSelect a round handle in the "
        "view and drag."),
    row(8043, 336, kWidth, First, ModifierKind::ShapeMove, "/bin/program/object-move.png",
        "Modifier - Shape Move:\nThis will move the final shape.\nSelect a round handle in the "
        "view and drag."),
    row(8042, 360, kWidth, Middle, ModifierKind::ShapeRotate, "/bin/program/object-rotate.png",
        "Modifier - Shape Rotate:\nThis will rotate the final shape.\nSelect a round handle in the "
        "view and drag."),
    row(8041, 384, kWidth, Last, ModifierKind::ShapeScale, "/bin/program/object-scale.png",
        "Modifier - Shape Scale:\nThis will scale the final shape.\nSelect a round handle in the "
        "view and drag."),
}};

QRect placeOf(const Tab3dButton& button, QSize page) {
  return placeAt(button.rect, button.edge, kTab3dPage, page);
}

QRect placeOfView(QSize page) {
  return growingPlace(kTab3dView, kTab3dPage, page);
}

}  // namespace pv
