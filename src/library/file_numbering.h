#pragma once

#include <string>
#include <string_view>

namespace pv {

/// The core file name that a typed text stands for: trimmed, in lower case.
[[nodiscard]] std::string coreNameOf(std::string_view text);

/// The next numbered name, core-0000 to core-9999 and on, for a folder of
/// thumbnails; empty when the folder does not exist. One more than the highest
/// number among "core*.bmp", where a file counts with what stands behind the
/// core name and one more character, read as atoi does. Files of longer core
/// names are cut alike; gaps are never filled. Numbers beyond 32 bits count as
/// the highest of these, and no thumbnail's name is ever given out again.
[[nodiscard]] std::string nextFileName(std::string_view thumbsFolder, std::string_view coreName);

}  // namespace pv
