#pragma once

#include <iosfwd>
#include <span>
#include <string>

namespace pv {

/// The whole program behind `pvortex`: `args` without the program's name, in
/// UTF-8. Results go to `out`, one line for each thing that went wrong to `err`,
/// which long commands also show their progress on when it is a terminal.
/// Returns the exit status (0, or one of ExitStatus) and never throws.
int runCli(std::span<const std::string> args, std::ostream& out, std::ostream& err,
           bool errIsTerminal = false);

}  // namespace pv
