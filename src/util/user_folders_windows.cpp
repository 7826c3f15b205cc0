#include "util/user_folders.h"

namespace pv {

std::filesystem::path userConfigFolder() {
  return {};
}

std::filesystem::path userRuntimeFolder() {
  return {};
}

}  // namespace pv
