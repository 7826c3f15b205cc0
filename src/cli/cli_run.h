#pragma once

#include <iosfwd>
#include <string>

#include "util/result.h"

namespace pv {

/// Exit statuses, with the numbers that scripts know from sysexits.
enum class ExitStatus : int {
  Done = 0,
  Usage = 64,
  BadData = 65,
  NoInput = 66,
  CannotCreate = 73,
  InputOutput = 74,
};

[[nodiscard]] ExitStatus exitStatusOf(ErrorKind kind);

/// Where a command writes, and the exit status that it leaves.
struct CliRun {
  std::ostream& out;
  std::ostream& err;
  bool errIsTerminal = false;  ///< progress may be shown there
  ExitStatus status = ExitStatus::Done;

  /// Writes "pvortex: message" as one line; the first failure's status stays.
  void fail(ExitStatus failure, const std::string& message);
  void fail(const Error& error) { fail(exitStatusOf(error.kind), error.message()); }
  /// Writes "pvortex: file: note: text"; the status stays.
  void note(const std::string& file, const std::string& text);
};

/// The text with a question mark for every control character, so that a file
/// name can neither break a line nor steer a terminal.
[[nodiscard]] std::string oneLine(std::string text);

}  // namespace pv
