#include "cli/Commands.h"
#include "cli/RiskColor.h"
#include "cli/Terminal.h"
#include "core/ByteFormat.h"
#include "core/IsoTime.h"
#include "core/Localized.h"
#include "core/Paths.h"
#include "junk/JunkCatalogue.h"
#include "junk/JunkFinder.h"
#include "platform/HomeFolder.h"
#include "platform/linux/LinuxAccessProbe.h"
#include "platform/linux/LinuxDirectoryLister.h"
#include "json/Json.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace brimlet {

namespace {

struct JunkOptions {
    std::vector<std::string> ruleIds;
    std::size_t top = 5;
    bool json = false;
};

constexpr std::size_t sizeColumns = 10;

/// An ISO 8601 date in UTC, or null.
Json dateText(std::optional<double> secondsSince1970) {
    const std::string text = secondsSince1970 ? isoTime(*secondsSince1970) : std::string();
    return text.empty() ? Json() : Json(text);
}

std::string counted(std::int64_t count, const char* one, const char* many) {
    return formatCount(count) + " " + (count == 1 ? one : many);
}

void printJson(const std::vector<JunkFinding>& findings) {
    Json document = Json::array();
    for (const JunkFinding& finding : findings) {
        Json items = Json::array();
        for (const JunkItem& item : finding.items) {
            items.push_back({{"id", jsonString(item.path)},
                             {"size", item.size},
                             {"fileCount", item.fileCount},
                             {"modified", dateText(item.modified)}});
        }
        document.push_back(
            {{"rule", finding.rule.id}, {"total", finding.total()}, {"items", std::move(items)}});
    }
    std::puts(writeJson(document, JsonLayout::indented).c_str());
}

void printFinding(const JunkFinding& finding, std::size_t top, const Terminal& terminal) {
    const auto itemCount = static_cast<std::int64_t>(finding.items.size());
    const std::string head =
        bold(padded(formatBytes(finding.total()), sizeColumns, Align::right), terminal) + "  " +
        bold(localized(finding.rule.title), terminal) + "  " +
        colored(label(finding.rule.risk), colorOf(finding.rule.risk), terminal) + "  " +
        faint(std::string(finding.rule.id) + ", " + counted(itemCount, "item", "items"), terminal);
    std::puts(head.c_str());
    const std::size_t nameColumns = std::max<std::size_t>(terminal.width, 40) - sizeColumns - 4;
    const std::size_t shown = std::min(top, finding.items.size());
    for (const JunkItem& item : std::span(finding.items).first(shown)) {
        const std::string name = printable(displayPath(item.path, homeFolder()));
        std::puts(
            (padded(formatBytes(item.size), sizeColumns, Align::right) + "    " + fitted(name, nameColumns))
                .c_str());
    }
    if (shown > 0 && shown < finding.items.size()) {
        const std::string rest = formatCount(itemCount - static_cast<std::int64_t>(shown)) + " more";
        std::puts((std::string(sizeColumns + 4, ' ') + faint("… and " + rest, terminal)).c_str());
    }
    std::puts("");
}

void printForPeople(const std::vector<JunkFinding>& findings, std::size_t top) {
    const Terminal terminal = standardOutput();
    std::int64_t total = 0;
    std::int64_t items = 0;
    for (const JunkFinding& finding : findings) {
        printFinding(finding, top, terminal);
        total += finding.total();
        items += static_cast<std::int64_t>(finding.items.size());
    }
    if (findings.empty()) {
        std::puts("No junk found.");
        return;
    }
    std::puts((bold(padded(formatBytes(total), sizeColumns, Align::right), terminal) + "  in " +
               counted(items, "item", "items"))
                  .c_str());
}

/// The rules asked for, in catalogue order; all where none was named. Empty where one is unknown.
std::vector<JunkRule> rulesNamed(const std::vector<std::string>& ids, const JunkTables& tables) {
    for (const std::string& id : ids) {
        if (junkRule(tables.rules, id) == nullptr)
            return {};
    }
    std::vector<JunkRule> rules;
    std::ranges::copy_if(tables.rules, std::back_inserter(rules), [&](const JunkRule& rule) {
        return ids.empty() || std::ranges::find(ids, rule.id) != ids.end();
    });
    return rules;
}

std::string knownIds(const JunkTables& tables) {
    std::string ids;
    for (const JunkRule& rule : tables.rules)
        ids += (ids.empty() ? "" : ", ") + std::string(rule.id);
    return ids;
}

ExitStatus findJunk(const JunkOptions& options, const SystemTables& system) {
    const JunkTables& tables = system.junk;
    const std::vector<JunkRule> rules = rulesNamed(options.ruleIds, tables);
    if (rules.empty())
        return fail("There is no such rule. The rules are " + knownIds(tables) + ".");
    const LinuxDirectoryLister lister;
    const LinuxAccessProbe access(std::string(system.access.database),
                                  homeFolder() + "/" + std::string(system.access.homeFolder));
    const std::vector<JunkFinding> findings = JunkFinder(homeFolder(), tables, lister, access).scan(rules);
    if (options.json)
        printJson(findings);
    else
        printForPeople(findings, options.top);
    return ExitStatus::done;
}

} // namespace

void addJunkCommand(CLI::App& app, Invocation& invocation) {
    const auto options = std::make_shared<JunkOptions>();
    CLI::App* command = app.add_subcommand("junk", "Find what can go: caches, logs, the Trash, installers");
    command->add_option("--rule", options->ruleIds, "Only this rule; may be given several times")
        ->type_name("ID")
        ->take_all()
        ->expected(1);
    command->add_option("--top", options->top, "Largest items shown of each rule")->capture_default_str();
    command->add_flag("--json", options->json, "Print an array of {rule, total, items}");
    command->footer("Nothing is changed. The rules are " + knownIds(invocation.system->junk) +
                    ".\n\nExamples:\n"
                    "  brimlet-cli junk\n"
                    "  brimlet-cli junk --rule trash --rule user-caches --json");
    command->callback([options, &invocation] { invocation.status = findJunk(*options, *invocation.system); });
}

} // namespace brimlet
