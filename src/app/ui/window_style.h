#pragma once

namespace pv {

/// Gives the application its dark look, the toolkit's own dialogs included,
/// whatever the desktop's theme is.
void applyDarkStyle();

}  // namespace pv
