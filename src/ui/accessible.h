#pragma once

namespace pv {

/// Teaches the toolkit's accessibility the roles, values and actions of the
/// skinned controls. Their constructors call it; once is enough.
void installAccessibility();

}  // namespace pv
