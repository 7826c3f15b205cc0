#pragma once

#include <string>
#include <vector>

namespace pv {

/// The drawings of all controls that the window shows first, by their names.
[[nodiscard]] std::vector<std::string> firstDrawings();

}  // namespace pv
