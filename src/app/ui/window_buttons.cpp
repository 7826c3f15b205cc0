#include "app/ui/window_buttons.h"

namespace pv {

const ButtonText kOpenButton = {"Open\u2026", "Open shape", "Ctrl+O",
                                "Open:\nThis opens a shape file."};
const ButtonText kSaveButton = {"Save As\u2026", "Save shape as", "Ctrl+S",
                                "Save As:\nThis saves the 3d Shape under a name of your choice."};

const std::array<ButtonText, 4> kViewButtons = {{
    {"3D", "3D view", "1", "Use 3d View:\nThis activates the full 3d View of the 3d Shape."},
    {"Top", "Top view", "2", "Use Top View:\nThis activates the top view of the 3d Shape."},
    {"Front", "Front view", "3", "Use Front View:\nThis activates the Front view of the 3d Shape."},
    {"Side", "Side view", "4", "Use Side View:\nThis actvates the side view of the 3d Shape."},
}};

const std::array<ButtonText, 3> kCameraButtons = {{
    {"Rotate", "Camera Rotate", "C",
     "Camera Rotate:\nThis will rotate around the 3d view center axis.\nClick the 3d view and "
     "drag."},
    {"Zoom", "Camera Zoom", "Z",
     "Camera Zoom:\nThis will zoom in/out of the 3d view.\nClick the 3d view and drag."},
    {"Roll", "Camera Roll", "O",
     "Camera Roll:\nThis will roll the 3d view left/right.\nClick the 3d view and drag."},
}};

const ButtonText kCameraResetButton = {
    "Reset", "Camera Reset", "Home",
    "Camera Reset:\nThis will reset the camera back to its default."};
const ButtonText kGridButton = {"Grid", "Grid", "G",
                                "Activate Grid:\nThis activates or deactivates the view grid."};
const ButtonText kLinesButton = {
    "Lines", "Lines", "L",
    "Activate 3d Shape Lines:\nThis shows the 3d shape as lines or as just the vertexes."};

const std::array<ModifierButton, kModifierCount> kModifierButtons = {{
    {ModifierKind::VertexMove,
     {"Move", "Vertex Move", "M",
      "Modifier - Vertex Move:\nThis will move the vertexes.\nSelect a round handle in the view "
      "and drag."}},
    {ModifierKind::VertexRotate,
     {"Rotate", "Vertex Rotate", "R",
      "Modifier - Vertex Rotate:\nThis will rotate the vertexes.\nSelect a round handle in the "
      "view and drag."}},
    {ModifierKind::VertexScale,
     {"Scale", "Vertex Scale", "S",
      "Modifier - Vertex Scale:\nThis will scale the vertexes.\nSelect a round handle in the view "
      "and drag."}},
    {ModifierKind::VertexDisperse,
     {"Disperse", "Vertex Disperse", "D",
      "Modifier - Vertex Disperse:\nThis will disperse the vertexes in space.\nSelect a round "
      "handle in the view and drag."}},
    {ModifierKind::PinchA,
     {"Pinch A", "Pinch A", "P",
      "Modifier - Pinch A:\nThis will pinch the shape.\nSelect a round handle in the view and "
      "drag."}},
    {ModifierKind::PinchB,
     {"Pinch B", "Pinch B", "Shift+P",
      "Modifier - Pinch B:\nThis will pinch the shape.\nSelect a round handle in the view and "
      "drag."}},
    {ModifierKind::Taper,
     {"Taper", "Taper", "T",
      "Modifier - Taper:\nThis will taper the shape.\nSelect a round handle in the view and "
      "drag."}},
    {ModifierKind::ShearA,
     {"Shear A", "Shear A", "H",
      "Modifier - Shear A:\nThis will shear the shape.\nSelect a round handle in the view and "
      "drag."}},
    {ModifierKind::ShearB,
     {"Shear B", "Shear B", "Shift+H",
      "Modifier - Shear B:\nThis will shear the shape.\nSelect a round handle in the view and "
      "drag."}},
    {ModifierKind::Bend,
     {"Bend", "Bend", "B",
      "Modifier - Bend:\nThis will bend the shape.\nSelect a round handle in the view and drag."}},
    {ModifierKind::Twist,
     {"Twist", "Twist", "W",
      "Modifier - Twist:\nThis will twist the shape.\nSelect a round handle in the view and "
      "drag."}},
    {ModifierKind::Bulge,
     {"Bulge", "Bulge", "U",
      "Modifier - Bulge:\nThis will bulge the middle of the shape.\nSelect a round handle in the "
      "view and drag."}},
    {ModifierKind::ShapeMove,
     {"Move", "Shape Move", "Shift+M",
      "Modifier - Shape Move:\nThis will move the final shape.\nSelect a round handle in the view "
      "and drag."}},
    {ModifierKind::ShapeRotate,
     {"Rotate", "Shape Rotate", "Shift+R",
      "Modifier - Shape Rotate:\nThis will rotate the final shape.\nSelect a round handle in the "
      "view and drag."}},
    {ModifierKind::ShapeScale,
     {"Scale", "Shape Scale", "Shift+S",
      "Modifier - Shape Scale:\nThis will scale the final shape.\nSelect a round handle in the "
      "view and drag."}},
}};

const ButtonText kResetButton = {
    "XYZ Reset", "XYZ Reset", "",
    "XYZ Reset:\nThis will reset the current selected modifier to its default."};
const ButtonText kResetAllButton = {
    "XYZ Reset All", "XYZ Reset All", "",
    "XYZ Reset All:\nThis will reset all modifiers to their default."};

}  // namespace pv
