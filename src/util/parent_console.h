#pragma once

namespace pv {

/// A program with windows has no console on Windows, not even where it was started
/// from one. While this lives, the standard output and error of such a program reach
/// that console, unless they lead to a file already; both are silent where there is
/// none. Elsewhere, nothing. For the last words before the program ends: closing a
/// console ends the programs that are attached to it.
class ParentConsole {
 public:
  ParentConsole();
  // NOLINTNEXTLINE(performance-trivially-destructible): not on every system.
  ~ParentConsole();
  ParentConsole(const ParentConsole&) = delete;
  ParentConsole& operator=(const ParentConsole&) = delete;
  ParentConsole(ParentConsole&&) = delete;
  ParentConsole& operator=(ParentConsole&&) = delete;

 private:
  [[maybe_unused]] unsigned formerCodePage_ = 0;  ///< 0 when not attached
};

}  // namespace pv
