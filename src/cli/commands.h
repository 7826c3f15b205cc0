#pragma once

#include <string>

#include "cli/cli_run.h"

namespace CLI {
class App;
}

namespace pv {

// Each adds one command to the parser. The command runs when the whole command
// line has been understood, and leaves its exit status in `run`, which must
// outlive the parser.
void addInfoCommand(CLI::App& app, CliRun& run);
void addNewCommand(CLI::App& app, CliRun& run);
void addSetCommand(CLI::App& app, CliRun& run);
void addExportCommand(CLI::App& app, CliRun& run);
void addRenderCommand(CLI::App& app, CliRun& run);
void addCheckCommand(CLI::App& app, CliRun& run);
void addPathCommand(CLI::App& app, CliRun& run);
void addLibraryCommand(CLI::App& app, CliRun& run);

// The commands below `path`.
void addPathInfoCommand(CLI::App& app, CliRun& run);
void addPathImportCommand(CLI::App& app, CliRun& run);
void addPathExportCommand(CLI::App& app, CliRun& run);

// The commands below `library`.
void addLibraryListCommand(CLI::App& app, CliRun& run);
void addLibraryTagsCommand(CLI::App& app, CliRun& run);
void addLibraryCheckCommand(CLI::App& app, CliRun& run);
void addLibraryReconstructCommand(CLI::App& app, CliRun& run);
void addLibraryThumbnailsCommand(CLI::App& app, CliRun& run);

/// An empty command with what all of them share. `examples` is one a line.
CLI::App& addCommand(CLI::App& app, const std::string& name, const std::string& description,
                     const std::string& examples);

/// --list-keys: prints the keys and ends, whatever else is missing.
void addListKeysFlag(CLI::App& command);

}  // namespace pv
