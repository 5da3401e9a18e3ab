#include "cli/Commands.h"
#include "cli/RiskColor.h"
#include "cli/Terminal.h"
#include "core/Paths.h"
#include "platform/HomeFolder.h"
#include "platform/linux/LinuxBundleReader.h"
#include "platform/linux/LinuxRunningApplications.h"
#include "safety/SafetyPolicy.h"
#include "json/Json.h"

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

namespace brimlet {

namespace {

struct VerdictOptions {
    std::vector<std::string> paths;
    bool pathsFromInput = false;
    bool json = false;
};

struct Judged {
    std::string path;
    SafetyVerdict verdict;
    const JunkRule* rule; ///< that covers the path, or null
};

/// Paths that end with NUL each; the last one may go without.
std::vector<std::string> readPaths(std::istream& input) {
    std::vector<std::string> paths;
    for (std::string path; std::getline(input, path, '\0');)
        paths.push_back(path);
    return paths;
}

/// A relative path from the working folder; any other as it stands, since the policy judges bytes as given.
std::string absolutePath(const std::string& path) {
    if (path.empty() || path.starts_with('/'))
        return path;
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::current_path(error);
    return error ? path : (folder / path).lexically_normal().native();
}

void printJson(const std::vector<Judged>& judged) {
    Json document = Json::array();
    for (const Judged& one : judged) {
        Json entry = {{"path", jsonString(one.path)},
                      {"risk", caseName(one.verdict.risk)},
                      {"reason", one.verdict.reason}};
        if (one.rule != nullptr)
            entry["rule"] = one.rule->id;
        document.push_back(std::move(entry));
    }
    std::puts(writeJson(document, JsonLayout::indented).c_str());
}

void printForPeople(const std::vector<Judged>& judged) {
    constexpr std::size_t riskColumns = 11;
    const Terminal terminal = standardOutput();
    for (const auto& [path, verdict, rule] : judged) {
        const std::string name = padded(label(verdict.risk), riskColumns);
        const std::string ruleNote = rule != nullptr ? " (" + std::string(rule->id) + ")" : "";
        std::puts((colored(name, colorOf(verdict.risk), terminal) + printable(path)).c_str());
        std::puts((std::string(riskColumns, ' ') + faint(verdict.reason + ruleNote, terminal)).c_str());
    }
}

ExitStatus judge(const VerdictOptions& options, const SystemTables& system) {
    if (options.paths.empty() && !options.pathsFromInput)
        return fail("Name at least one path, or give a list with --null.");
    const LinuxBundleReader bundles;
    const LinuxRunningApplications running(bundles, system.safety.applications.suffix);
    const SafetyPolicy policy(homeFolder(), system.safety, system.junk.rules, bundles, running);
    std::vector<Judged> judged;
    for (const std::string& given : options.pathsFromInput ? readPaths(std::cin) : options.paths) {
        const std::string path = absolutePath(given);
        judged.push_back({path, policy.verdict(path), policy.rule(normalisedPath(path))});
    }
    if (options.json)
        printJson(judged);
    else
        printForPeople(judged);
    return ExitStatus::done;
}

} // namespace

void addVerdictCommand(CLI::App& app, Invocation& invocation) {
    const auto options = std::make_shared<VerdictOptions>();
    CLI::App* command = app.add_subcommand("verdict", "Tell whether a path may be removed, and why");
    CLI::Option* paths = command->add_option("paths", options->paths, "Files and folders")->type_name("PATH");
    command->add_flag("--null", options->pathsFromInput, "Read paths, each ended by NUL, from standard input")
        ->excludes(paths);
    command->add_flag("--json", options->json, "Print an array of {path, risk, reason, rule}");
    command->footer("Paths need not exist. Relative ones count from the working folder.\n\n"
                    "Examples:\n"
                    "  brimlet-cli verdict ~/Downloads /usr/bin\n"
                    "  find ~ -name '*.dmg' -print0 | brimlet-cli verdict --null --json");
    command->callback([options, &invocation] { invocation.status = judge(*options, *invocation.system); });
}

} // namespace brimlet
