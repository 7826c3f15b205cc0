#include "util/parent_console.h"

namespace pv {

ParentConsole::ParentConsole() = default;
ParentConsole::~ParentConsole() = default;

}  // namespace pv
