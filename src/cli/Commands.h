// The commands of brimlet-cli, one source file each. A command adds itself as a subcommand of `app`, runs in
// that subcommand's callback and leaves its outcome in `status`.
#pragma once

#include <CLI/CLI.hpp>
#include <string_view>

namespace brimlet {

enum class ExitStatus {
    done = 0,
    partly = 1, ///< done, with something refused or unreadable
    failed = 2, ///< wrong use, or nothing could be done
    interrupted = 130,
};

void addScanCommand(CLI::App& app, ExitStatus& status);
void addMeasureCommand(CLI::App& app, ExitStatus& status);
void addJunkCommand(CLI::App& app, ExitStatus& status);
void addVerdictCommand(CLI::App& app, ExitStatus& status);
void addRemoveCommand(CLI::App& app, ExitStatus& status);
void addHistoryCommand(CLI::App& app, ExitStatus& status);
void addRestoreCommand(CLI::App& app, ExitStatus& status);

/// Writes one sentence to standard error. Returns `failed`.
ExitStatus fail(std::string_view sentence);

} // namespace brimlet
