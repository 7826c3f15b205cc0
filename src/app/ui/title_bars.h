#pragma once

namespace pv {

/// From now on the title bars of all windows are dark where the system lets a program
/// say so: they would stand out bright above the dark style.
void darkenTitleBars();

}  // namespace pv
