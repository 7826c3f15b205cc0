#include "path/ui/edit_path_layout.h"

#include <algorithm>

#include "path/path_tool.h"
#include "path/path_viewport.h"

namespace pv {
namespace {

using enum EditPathAction;
using enum PageEdge;
using enum ImageButton::Joint;

constexpr int kWidth = 23;  // of a button, in dialog units
constexpr int kHeight = 22;
constexpr int kRow = 318;  // where the bottom row begins

constexpr EditPathButton column(int id, const char* label, int y, EditPathAction action, int which,
                                const char* image, const char* help) {
  const PageEdge edge = y == kRow ? BottomLeft : TopLeft;
  return {id, label, {0, y, kWidth, kHeight}, edge, Single, action, which, image, help};
}

constexpr EditPathButton column(int id, const char* label, int y, PathAxisView axes,
                                const char* image, const char* help) {
  return column(id, label, y, View, static_cast<int>(axes), image, help);
}

constexpr EditPathButton column(int id, const char* label, int y, PathTool tool, const char* image,
                                const char* help) {
  return column(id, label, y, Tool, static_cast<int>(tool), image, help);
}

constexpr EditPathButton row(int id, const char* label, int x, EditPathAction action, int which,
                             const char* image, const char* help) {
  return {id, label, {x, kRow, kWidth, kHeight}, BottomLeft, Single, action, which, image, help};
}

// Undo and redo: one piece, as wide as their drawings need.
constexpr EditPathButton step(int id, const char* label, int x, ImageButton::Joint joint,
                              EditPathAction action, const char* image, const char* help) {
  constexpr int kStepWidth = 19;
  return {id, label, {x, kRow, kStepWidth, kHeight}, BottomLeft, joint, action, 0, image, help};
}

constexpr EditPathButton wayOut(int id, const char* label, int x, EditPathAction action) {
  return {id, label, {x, 323, 50, 14}, BottomRight, Single, action, 0, nullptr, ""};
}

}  // namespace

const std::array<EditPathButton, kEditPathButtonCount> kEditPathButtons{{
    column(8037, "front", 0, PathAxisView::Front, "/bin/program/axis-front.png",
           "Use Front View:\nThis activates the Front view of the 3d Shape."),
    column(8038, "side", 24, PathAxisView::Side, "/bin/program/axis-side.png",
           "Use Side View:\nThis actvates the side view of the 3d Shape."),
    column(8036, "top", 48, PathAxisView::Top, "/bin/program/axis-top.png",
           "Use Top View:\nThis activates the top view of the 3d Shape."),
    column(8062, "arrow", 78, PathTool::Select, "/bin/program/path-arrow.png",
           "Select:\nThis allows you to select vertexes.\nClick and drag the rectange around the "
           "vertexes you want to select.\nPressing <ctrl> allows you to add and remove selected "
           "vertexes."),
    column(8051, "line", 102, PathTool::Draw, "/bin/program/path-draw.png",
           "Path Draw:\nContinues to add vertexes from the end of the current path."),
    column(8052, "add", 126, PathTool::Add, "/bin/program/path-add.png",
           "Path Vertex Add:\nAdds a new vertex into the highlighted line.\nClick the view to "
           "add."),
    column(8041, "delete", 150, PathTool::Delete, "/bin/program/path-delete.png",
           "Path Vertex Delete:\nDeletes selected vertexes.\nTo select a vertex, click and drag a "
           "rectangle."),
    column(8063, "move", 210, PathTool::Move, "/bin/program/path-move.png",
           "Vertex Move:\nMoves the selected vertexes when the mouse is over them.\nWhen over, the "
           "selected vertexes turn from red to green."),
    column(8064, "scale", 234, PathTool::Scale, "/bin/program/path-scale.png",
           "Vertex Scale:\nScales the selected vertexes in both visible axis when the mouse is "
           "over them.\nWhen over, the selected vertexes turn from red to green."),
    column(8065, "scalex", 258, PathTool::ScaleX, "/bin/program/path-scalex.png",
           "Vertex X Scale:\nScales the selected vertexes in the left/right visible axis when the "
           "mouse is over them.\nWhen over, the selected vertexes turn from red to green."),
    column(8066, "scaley", 282, PathTool::ScaleY, "/bin/program/path-scaley.png",
           "Vertex Y Scale:\nScales the selected vertexes in the up.down visible axis when the "
           "mouse is over them.\nWhen over, the selected vertexes turn from red to green."),
    column(8039, "Reset", kRow, DeletePath, 0, "/bin/program/path-reset.png",
           "PAth Delete:\nThis will delete the entire path."),
    row(8033, "zoom", 42, Tool, static_cast<int>(PathTool::Zoom), "/bin/program/path-zoom.png",
        "Grid Zoom:\nZooms the current grid view.\nClick the view and drag to use."),
    row(8941, "zoom121", 66, ResetZoom, 0, "/bin/program/path-zoom121.png",
        "Zoom Reset:\nResets the current grid view to it's centered position."),
    row(8940, "grab", 96, Tool, static_cast<int>(PathTool::Grab), "/bin/program/path-handmove.png",
        "Grid Move:\nMoves the current grid view.\nClick the view and drag to use.\nYou can Press "
        "<ctrl> to directly use this."),
    step(8942, "Undo", 122, First, Undo, "/bin/program/path-undo.png",
         "Undo:\n%1\nPressing <ctrl> and Z does the same."),
    step(8943, "Redo", 141, Last, Redo, "/bin/program/path-redo.png",
         "Redo:\n%1\nPressing <ctrl> and Y does the same."),
    row(8046, "snap", 162, ToggleSnap, 0, "/bin/program/snap.png",
        "Snap Activate:\nThis will activate/deactivate snapping.\nSnapping locks the path to the "
        "nearest grid position."),
    row(8047, "grid1", 186, SnapDivisions, 10, "/bin/program/snap-1.png",
        "Snap to 1 grid position:\nSets the snapping to a whole grid position."),
    row(8048, "grid2", 210, SnapDivisions, 20, "/bin/program/snap-2.png",
        "Snap to 1/2 grid position:\nSets the snapping to a half grid position."),
    row(8049, "grid3", 234, SnapDivisions, 30, "/bin/program/snap-3.png",
        "Snap to 1/3 grid position:\nSets the snapping to a third grid position."),
    row(8050, "grid4", 258, SnapDivisions, 40, "/bin/program/snap-4.png",
        "Snap to 1/4 grid position:\nSets the snapping to a quarter grid position."),
    wayOut(1, "Use Path", 298, Use),
    wayOut(2, "Cancel Path", 353, Cancel),
}};

QRect placeOf(const EditPathButton& button, QSize page) {
  return placeAt(button.rect, button.edge, kEditPathPage, page);
}

QRect placeOfPathView(QSize page) {
  return growingPlace(kEditPathView, kEditPathPage, page);
}

}  // namespace pv
