#include "cli/Commands.h"
#include "cli/Terminal.h"
#include "core/ByteFormat.h"
#include "core/walk/MeasureTree.h"
#include "json/Json.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace brimlet {

namespace {

struct MeasureOptions {
    std::vector<std::string> paths;
    bool json = false;
};

struct Measured {
    std::string path;
    TreeMeasure measure;
};

std::vector<Measured> measureAll(const std::vector<std::string>& paths, ExitStatus& status) {
    std::vector<Measured> measured;
    for (const std::string& path : paths) {
        struct stat found {};
        if (lstat(path.c_str(), &found) != 0) {
            fail("\"" + path + "\" can't be examined.");
            status = ExitStatus::partly;
            continue;
        }
        measured.push_back({path, measureTree(std::filesystem::absolute(path).string())});
    }
    return measured;
}

void printJson(const std::vector<Measured>& measured) {
    Json document = Json::array();
    for (const Measured& one : measured) {
        document.push_back(
            {{"path", jsonString(one.path)}, {"bytes", one.measure.bytes}, {"files", one.measure.files}});
    }
    std::puts(writeJson(document, JsonLayout::indented).c_str());
}

void printTable(const std::vector<Measured>& measured) {
    std::size_t sizeColumns = 0;
    std::size_t countColumns = 0;
    for (const Measured& one : measured) {
        sizeColumns = std::max(sizeColumns, columnsOf(formatBytes(one.measure.bytes)));
        countColumns = std::max(countColumns, columnsOf(formatCount(one.measure.files)));
    }
    for (const Measured& one : measured) {
        std::puts((padded(formatBytes(one.measure.bytes), sizeColumns, Align::right) + "  " +
                   padded(formatCount(one.measure.files), countColumns, Align::right) +
                   (one.measure.files == 1 ? " file   " : " files  ") + printable(one.path))
                      .c_str());
    }
}

ExitStatus measure(const MeasureOptions& options) {
    ExitStatus status = ExitStatus::done;
    const std::vector<Measured> measured = measureAll(options.paths, status);
    if (options.json)
        printJson(measured);
    else
        printTable(measured);
    return measured.empty() ? ExitStatus::failed : status;
}

} // namespace

void addMeasureCommand(CLI::App& app, Invocation& invocation) {
    const auto options = std::make_shared<MeasureOptions>();
    CLI::App* command = app.add_subcommand("measure", "Size files and folders, as du would");
    command->add_option("paths", options->paths, "Files and folders")->required()->type_name("PATH");
    command->add_flag("--json", options->json, "Print an array of {path, bytes, files}");
    command->footer("Sizes are bytes allocated on the disk. Links are not followed, other file systems are "
                    "not entered, and a\nfile with several hard links counts once for each PATH.\n\n"
                    "Examples:\n"
                    "  brimlet-cli measure ~/Downloads ~/.cache\n"
                    "  brimlet-cli measure --json /var/log");
    command->callback([options, &invocation] { invocation.status = measure(*options); });
}

} // namespace brimlet
