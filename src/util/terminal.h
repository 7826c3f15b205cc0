#pragma once

namespace pv {

/// True when a person sees what goes to the standard error, so that lines may
/// be drawn over again.
[[nodiscard]] bool errorGoesToTerminal();

}  // namespace pv
