// brimlet-cli: the engine of the application for terminals and scripts.

#include <CLI/CLI.hpp>

int main(int argc, char** argv) {
    CLI::App app("Shows where the space of a disk goes and gives it back.", "brimlet-cli");
    app.set_version_flag("--version", BRIMLET_VERSION);
    CLI11_PARSE(app, argc, argv);
    return 0;
}
