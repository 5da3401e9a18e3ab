#include "cli/Commands.h"
#include "cli/ScanJson.h"
#include "cli/ScanReport.h"
#include "cli/Terminal.h"
#include "core/ByteFormat.h"
#include "core/Paths.h"
#include "core/walk/Scanner.h"
#include "platform/HomeFolder.h"

#include <atomic>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <unordered_set>
#include <vector>

namespace brimlet {

namespace {

struct ScanOptions {
    std::string folder;
    std::vector<std::string> excluded;
    std::size_t top = 10;
    bool json = false;
    ScanJsonParts parts;
};

/// What a signal handler can reach; null while no scan runs.
std::atomic<Scanner*> interruptedScanner = nullptr;

void cancelScan(int) {
    if (Scanner* scanner = interruptedScanner)
        scanner->cancel();
}

/// While it lives, the first Ctrl-C cancels the scan; a second one ends the program at once.
class CancelOnInterrupt {
public:
    explicit CancelOnInterrupt(Scanner& scanner) {
        interruptedScanner = &scanner;
        struct sigaction action {};
        action.sa_handler = cancelScan;
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        sigaction(SIGINT, &action, &m_previous);
    }
    ~CancelOnInterrupt() {
        sigaction(SIGINT, &m_previous, nullptr);
        interruptedScanner = nullptr;
    }
    CancelOnInterrupt(const CancelOnInterrupt&) = delete;
    CancelOnInterrupt& operator=(const CancelOnInterrupt&) = delete;

private:
    struct sigaction m_previous {};
};

/// The folder to scan as an absolute path with links resolved, or a sentence that says why not.
struct Start {
    std::string path;
    std::string problem;
};

Start startOf(const std::string& folder) {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::file_status status = fs::symlink_status(folder, error);
    if (status.type() == fs::file_type::not_found)
        return {{}, "\"" + folder + "\" does not exist."};
    if (status.type() == fs::file_type::symlink)
        return {{}, "\"" + folder + "\" is a symbolic link; name the folder it leads to."};
    if (!error && status.type() != fs::file_type::directory)
        return {{}, "\"" + folder + "\" is not a folder; \"brimlet-cli measure\" sizes single files."};
    const fs::path resolved = fs::canonical(folder, error);
    if (error)
        return {{}, "\"" + folder + "\" can't be opened: " + error.message() + "."};
    return {resolved.string(), {}};
}

std::unordered_set<std::string> excludedPaths(const std::vector<std::string>& folders) {
    std::unordered_set<std::string> paths;
    for (const std::string& folder : folders) {
        std::error_code error;
        const std::filesystem::path resolved = std::filesystem::canonical(folder, error);
        if (!error)
            paths.emplace(normalisedPath(resolved.string()));
    }
    return paths;
}

std::shared_ptr<ScanResult> scanWithProgress(Scanner& scanner, const std::string& path,
                                             const std::unordered_set<std::string>& excluded) {
    const CancelOnInterrupt cancelOnInterrupt(scanner);
    ProgressLine line;
    Scanner::Progress progress;
    if (line.isShown()) {
        progress = [&line](std::int64_t files, std::int64_t bytes, std::string_view currentPath) {
            line.show(formatCount(files) + " files  " + formatBytes(bytes), currentPath);
        };
    }
    return scanner.scan(path, excluded, progress);
}

ExitStatus scan(const ScanOptions& options, const SystemTables& system) {
    const std::string home = homeFolder();
    const Start start = startOf(options.folder.empty() ? home : options.folder);
    if (!start.problem.empty())
        return fail(start.problem);
    Scanner scanner(system.folders);
    const auto result = scanWithProgress(scanner, start.path, excludedPaths(options.excluded));
    if (!result && scanner.isCancelled()) {
        fail("The scan was cancelled.");
        return ExitStatus::interrupted;
    }
    if (!result)
        return fail("\"" + start.path + "\" can't be scanned.");
    if (options.json)
        writeScanJson(stdout, *result, options.parts);
    else
        std::fputs(scanReport(*result, options.top, home, standardOutput()).c_str(), stdout);
    if (result->root->unreadable)
        return fail("\"" + start.path + "\" can't be read.");
    return result->unreadableDirectories > 0 ? ExitStatus::partly : ExitStatus::done;
}

} // namespace

void addScanCommand(CLI::App& app, Invocation& invocation) {
    const auto options = std::make_shared<ScanOptions>();
    CLI::App* command = app.add_subcommand("scan", "Show where the space of a folder goes");
    command->add_option("folder", options->folder, "What to scan; the home folder if left out")
        ->type_name("FOLDER");
    command->add_option("--exclude", options->excluded, "Leave a folder out; may be repeated")
        ->type_name("DIR")
        ->allow_extra_args(false);
    command->add_option("--top", options->top, "How many folders and files to list (10)")->type_name("N");
    CLI::Option* json = command->add_flag("--json", options->json, "Print one JSON document");
    command->add_flag("--files", options->parts.files, "Add all files of at least 512 KiB to the JSON")
        ->needs(json);
    command->add_flag("--tree", options->parts.tree, "Add the tree of folders and large files to the JSON")
        ->needs(json);
    command->footer("Sizes are bytes allocated on the disk. Symbolic links are not followed, other file "
                    "systems are not entered,\nand a file with several hard links counts once.\n\n"
                    "Exit status: 0 done, 1 done but something could not be read, 2 nothing could be done, "
                    "130 cancelled.\n\n"
                    "Examples:\n"
                    "  brimlet-cli scan\n"
                    "  brimlet-cli scan /var --exclude /var/lib --top 20\n"
                    "  brimlet-cli scan ~/Projects --json --files");
    command->callback([options, &invocation] { invocation.status = scan(*options, *invocation.system); });
}

} // namespace brimlet
