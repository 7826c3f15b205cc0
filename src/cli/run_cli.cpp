#include "cli/run_cli.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <new>
#include <ostream>
#include <vector>

#include "cli/assignments.h"
#include "cli/cli_run.h"
#include "cli/commands.h"

namespace pv {

namespace {

constexpr const char* kVersionText = "pvortex " PV_VERSION;

void addCommands(CLI::App& app, CliRun& run) {
  addInfoCommand(app, run);
  addNewCommand(app, run);
  addSetCommand(app, run);
  addExportCommand(app, run);
  addRenderCommand(app, run);
  addCheckCommand(app, run);
  addPathCommand(app, run);
  addLibraryCommand(app, run);
}

void reportUsage(const CLI::App& app, const CLI::ParseError& error, CliRun& run) {
  const CLI::App* last = &app;
  std::string command = "pvortex";
  while (!last->get_subcommands().empty()) {
    last = last->get_subcommands().front();
    command += " " + last->get_name();
  }
  std::string fault = error.what();
  if (last->get_require_subcommand_min() > 0) {
    const auto words = last->remaining();
    const bool option = !words.empty() && words.front().starts_with('-');
    fault = words.empty() ? "a command is missing"
                          : "'" + words.front() + (option ? "' is no option" : "' is no command");
  }
  run.fail(ExitStatus::Usage, fault + "; see '" + command + " --help'");
}

/// The parser knows -0.5,0,0 for a point but takes -.5,0,0 for options.
std::string withLeadingZero(const std::string& arg) {
  const bool bare = arg.size() > 2 && arg.starts_with("-.") &&
                    arg.find_first_not_of("0123456789.,+-eE") == std::string::npos;
  return bare ? "-0" + arg.substr(1) : arg;
}

void parseAndRun(std::span<const std::string> args, CliRun& run) {
  CLI::App app("Makes, edits, checks and converts shape and path files, and keeps their libraries.",
               "pvortex");
  app.require_subcommand(1);
  app.allow_windows_style_options(false);
  app.set_version_flag("--version", kVersionText);
  app.footer(
      "Exit status: 0 done, 64 wrong usage, 65 bad data, 66 no input, 73 cannot create,\n"
      "74 input or output error.\n\n"
      "Examples:\n"
      "  pvortex new -o grid.j3d emitter.kind=grid emitter.horizontalAmount=20\n"
      "  pvortex render grid.j3d -o grid.png --view top\n"
      "  pvortex check *.j3d *.j2d");
  app.get_formatter()->label("SUBCOMMAND", "COMMAND");
  app.get_formatter()->label("Subcommands", "Commands");
  addCommands(app, run);
  std::vector<std::string> reversed(args.size());  // as the parser wants them
  std::transform(args.rbegin(), args.rend(), reversed.begin(), withLeadingZero);
  try {
    app.parse(reversed);
  } catch (const CLI::Success& asked) {
    app.exit(asked, run.out, run.err);  // help and the like
  } catch (const CLI::ParseError& error) {
    reportUsage(app, error, run);
  }
}

}  // namespace

CLI::App& addCommand(CLI::App& app, const std::string& name, const std::string& description,
                     const std::string& examples) {
  CLI::App* command = app.add_subcommand(name, description);
  command->set_version_flag("--version", kVersionText);
  command->footer("Examples:\n" + examples);
  return *command;
}

void addListKeysFlag(CLI::App& command) {
  // Ends the parsing as --version does: with a text and status 0.
  command.add_flag_callback(
      "--list-keys", [] { throw CLI::CallForVersion(keyListText(), 0); },
      "Print every KEY with its default and what the designer offers");
}

int runCli(std::span<const std::string> args, std::ostream& out, std::ostream& err,
           bool errIsTerminal) {
  CliRun run{out, err, errIsTerminal};
  try {
    parseAndRun(args, run);
    if (!out.flush()) {
      run.fail(ExitStatus::InputOutput, "the standard output cannot be written");
    }
  } catch (const std::bad_alloc&) {
    run.fail(ExitStatus::InputOutput, "there is not enough memory");
  } catch (const std::exception& error) {
    run.fail(ExitStatus::InputOutput, error.what());
  }
  return static_cast<int>(run.status);
}

}  // namespace pv
