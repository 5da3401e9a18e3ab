#include "cli/Commands.h"

namespace brimlet {

void addScanCommand(CLI::App& app, ExitStatus& status) {
    CLI::App* command = app.add_subcommand("scan", "Show where the space of a folder goes");
    command->callback([&status] { status = fail("scan is not there yet."); });
}

} // namespace brimlet
