#pragma once

namespace pv {

/// True when a person sees what goes to the standard error, so that lines may
/// be drawn over again.
[[nodiscard]] bool errorGoesToTerminal();

/// For a program on the command line, as long as it writes: what it writes is UTF-8 and
/// ends its lines with LF wherever it goes, and no fault of a drive or a limit of the
/// system ends or interrupts it, but is reported by the call that met it.
class CommandLineSession {
 public:
  CommandLineSession();
  /// A console reads text as it did before.
  // NOLINTNEXTLINE(performance-trivially-destructible): not on every system.
  ~CommandLineSession();
  CommandLineSession(const CommandLineSession&) = delete;
  CommandLineSession& operator=(const CommandLineSession&) = delete;
  CommandLineSession(CommandLineSession&&) = delete;
  CommandLineSession& operator=(CommandLineSession&&) = delete;

 private:
  [[maybe_unused]] unsigned codePageBefore_ = 0;
};

}  // namespace pv
