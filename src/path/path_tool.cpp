#include "path/path_tool.h"

#include <algorithm>

namespace pv {
namespace {

constexpr std::array<std::string_view, kPathCursorCount> kCursorImages{
    "",      "hand-on", "hand-off", "zoom",      "pen",           "arrow-move2",
    "scale", "scale-x", "scale-y",  "arrow-add", "arrow-subtract"};

constexpr std::array<PathToolTraits, kPathToolCount> kTools{{
    {PathTool::Zoom, PathCursor::Zoom, PathCursor::Zoom, "", "Drag right or up to zoom in."},
    {PathTool::Select, PathCursor::Arrow, PathCursor::Arrow, "",
     "Drag a rectangle around points to select them."},
    {PathTool::Move, PathCursor::Arrow, PathCursor::ArrowMove2, "Move points",
     "Drag a selected point to move the selection."},
    {PathTool::Scale, PathCursor::Arrow, PathCursor::Scale, "Scale points",
     "Drag a selected point right or up to enlarge the selection."},
    {PathTool::ScaleX, PathCursor::Arrow, PathCursor::ScaleX, "Scale points",
     "Drag a selected point to scale the selection left and right."},
    {PathTool::ScaleY, PathCursor::Arrow, PathCursor::ScaleY, "Scale points",
     "Drag a selected point to scale the selection up and down."},
    {PathTool::Draw, PathCursor::Pen, PathCursor::Pen, "Draw point",
     "Click to add a point. Backspace removes the last one."},
    {PathTool::Add, PathCursor::Arrow, PathCursor::ArrowAdd, "Insert point",
     "Click a highlighted line to halve it."},
    {PathTool::Delete, PathCursor::Arrow, PathCursor::ArrowSubtract, "Delete points",
     "Select points, then click one of them or press Delete."},
    {PathTool::Grab, PathCursor::HandOn, PathCursor::HandOn, "", "Drag to move the view."},
}};

constexpr std::size_t kSelectRow = 1;
static_assert(kTools[kSelectRow].tool == PathTool::Select);

}  // namespace

std::string_view pathCursorImage(PathCursor cursor) {
  const auto index = static_cast<std::size_t>(cursor);
  return index < kCursorImages.size() ? kCursorImages[index] : std::string_view();
}

const std::array<PathToolTraits, kPathToolCount>& pathTools() {
  return kTools;
}

bool isPathTool(PathTool tool) {
  return std::ranges::find(kTools, tool, &PathToolTraits::tool) != kTools.end();
}

const PathToolTraits& pathToolTraits(PathTool tool) {
  for (const PathToolTraits& row : kTools) {
    if (row.tool == tool) {
      return row;
    }
  }
  return kTools[kSelectRow];
}

}  // namespace pv
