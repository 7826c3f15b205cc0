#pragma once

#include <string>

namespace pv {

/// What save_loop writes into a data file: long enough to be cut in two, and
/// different in every file.
inline std::string saveLoopData(const std::string& name) {
  std::string data;
  while (data.size() < 6494) {
    data += name + "\n";
  }
  return data;
}

}  // namespace pv
