#pragma once

namespace pv {

/// The left panel's pages by their index: the four of the strip, then those of
/// the modes.
enum class LeftPage : int { Library, Emitter, Particles, Forces, Path, Save, Load, EditTags };

/// The right panel's pages by their index.
enum class RightPage : int { View3d, PathEditor, Save, Load, EditTags };

/// What both panels show.
struct PanelPages {
  LeftPage left = LeftPage::Emitter;
  RightPage right = RightPage::View3d;

  bool operator==(const PanelPages&) const = default;
};

}  // namespace pv
