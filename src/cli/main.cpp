// brimlet-cli: the engine of the application for terminals and scripts.

#include "cli/Commands.h"
#include "cli/Terminal.h"

#include <clocale>
#include <cstdio>
#include <string>
#include <vector>

namespace brimlet {

namespace {

constexpr auto addCommands = {
    addScanCommand,   addMeasureCommand, addJunkCommand,    addVerdictCommand,
    addRemoveCommand, addHistoryCommand, addRestoreCommand,
};

void addSystemOption(CLI::App& app, Invocation& invocation) {
    std::vector<std::string> names;
    for (const SystemTables* system : allSystems())
        names.emplace_back(system->name);
    app.add_option_function<std::string>(
           "--system", [&](const std::string& name) { invocation.system = systemNamed(name); },
           "Whose rules count; this system's without it")
        ->check(CLI::IsMember(names));
}

int run(int argc, char** argv) {
    CLI::App app("Shows where the space of a disk goes and gives it back.", "brimlet-cli");
    app.set_version_flag("--version", BRIMLET_VERSION);
    app.require_subcommand(1);
    app.get_formatter()->column_width(28);
    Invocation invocation;
    addSystemOption(app, invocation);
    for (const auto add : addCommands)
        add(app, invocation);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& answer) {
        return app.exit(answer);
    } catch (const CLI::Error& error) {
        invocation.status = fail(std::string(error.what()) + ". Try \"brimlet-cli --help\".");
    }
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
        invocation.status = fail("The output could not be written.");
    return static_cast<int>(invocation.status);
}

} // namespace

ExitStatus fail(std::string_view sentence) {
    const std::string line = "brimlet-cli: " + printable(sentence) + "\n";
    std::fputs(line.c_str(), stderr);
    return ExitStatus::failed;
}

} // namespace brimlet

int main(int argc, char** argv) {
    // Widths of characters are asked for UTF-8 also where the user's locale is another.
    if (std::setlocale(LC_CTYPE, "C.UTF-8") == nullptr)
        std::setlocale(LC_CTYPE, "");
    return brimlet::run(argc, argv);
}
