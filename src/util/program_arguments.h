#pragma once

#include <string>
#include <vector>

namespace pv {

/// What the program was started with, its own name left out, from what main() was
/// given. On Windows UTF-8 whatever the code page; elsewhere the bytes as they are.
/// Either way pathFromUtf8 makes a path of one.
[[nodiscard]] std::vector<std::string> programArguments(int argc, const char* const* argv);

}  // namespace pv
