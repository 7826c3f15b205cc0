#include "cli/cli_run.h"

#include <algorithm>
#include <ostream>

namespace pv {

ExitStatus exitStatusOf(ErrorKind kind) {
  switch (kind) {
    case ErrorKind::BadData:
      return ExitStatus::BadData;
    case ErrorKind::NoInput:
      return ExitStatus::NoInput;
    case ErrorKind::CannotCreate:
      return ExitStatus::CannotCreate;
    case ErrorKind::InputOutput:
      break;
  }
  return ExitStatus::InputOutput;
}

void CliRun::fail(ExitStatus failure, const std::string& message) {
  err << "pvortex: " << oneLine(message) << '\n';
  if (status == ExitStatus::Done) {
    status = failure;
  }
}

void CliRun::note(const std::string& file, const std::string& text) {
  err << "pvortex: " << oneLine(file) << ": note: " << text << '\n';
}

std::string oneLine(std::string text) {
  const auto isControl = [](char c) { return (c >= '\0' && c < ' ') || c == '\x7F'; };
  std::replace_if(text.begin(), text.end(), isControl, '?');
  return text;
}

}  // namespace pv
