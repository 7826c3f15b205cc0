#pragma once

namespace pv {

/// Teaches the toolkit's accessibility that a thumbnail list is a list of named
/// items. Its constructor calls it; once is enough.
void installThumbListAccess();

}  // namespace pv
