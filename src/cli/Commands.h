// The commands of brimlet-cli, one source file each. A command adds itself as a subcommand of `app`, runs in
// that subcommand's callback and leaves its outcome in the invocation.
#pragma once

#include "tables/SystemTables.h"

#include <CLI/CLI.hpp>
#include <string_view>

namespace brimlet {

enum class ExitStatus {
    done = 0,
    partly = 1, ///< done, with something refused or unreadable
    failed = 2, ///< wrong use, or nothing could be done
    interrupted = 130,
};

/// One call of the program: what was said before the command, and what came of it.
struct Invocation {
    const SystemTables* system = &defaultSystem(); ///< never null
    ExitStatus status = ExitStatus::done;
};

void addScanCommand(CLI::App& app, Invocation& invocation);
void addMeasureCommand(CLI::App& app, Invocation& invocation);
void addJunkCommand(CLI::App& app, Invocation& invocation);
void addVerdictCommand(CLI::App& app, Invocation& invocation);
void addRemoveCommand(CLI::App& app, Invocation& invocation);
void addHistoryCommand(CLI::App& app, Invocation& invocation);
void addRestoreCommand(CLI::App& app, Invocation& invocation);

/// Writes one sentence to standard error. Returns `failed`.
ExitStatus fail(std::string_view sentence);

} // namespace brimlet
