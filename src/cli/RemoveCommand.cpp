#include "app/Preferences.h"
#include "cli/Commands.h"
#include "cli/DeletionEngine.h"
#include "cli/RiskColor.h"
#include "cli/StopSignals.h"
#include "cli/Terminal.h"
#include "core/ByteFormat.h"
#include "core/Paths.h"
#include "core/walk/MeasureTree.h"
#include "platform/HomeFolder.h"
#include "platform/linux/FilePreferencesStore.h"
#include "safety/DeletionPlanning.h"
#include "json/Json.h"

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

namespace brimlet {

namespace {

struct RemoveOptions {
    std::vector<std::string> paths;
    bool permanent = false;
    bool includeReview = false;
    bool dryRun = false;
    bool yes = false;
    bool json = false;
};

DeletionPlan planFor(const RemoveOptions& options, PathAssessor& assessor) {
    std::vector<std::string> paths;
    std::ranges::transform(options.paths, std::back_inserter(paths), absoluteAsGiven);
    const std::vector<ReviewedItem> reviewed = assessor.review.review(paths);
    std::vector<PlanItem> items;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        items.push_back({paths[i], std::string(lastPathComponent(paths[i])), measureTree(paths[i]).bytes,
                         options.permanent ? Removal::permanent : Removal::trash, reviewed[i].verdict,
                         reviewed[i].identity});
    }
    return planOf(items, "Remove").value_or(DeletionPlan());
}

void printPlan(const DeletionPlan& plan, const RemoveOptions& options) {
    constexpr std::size_t sizeColumns = 10;
    const Terminal terminal = standardOutput();
    for (const Risk risk : allRisks) {
        const auto isOfRisk = [&](const PlanItem& item) { return item.verdict.risk == risk; };
        if (std::none_of(plan.items.begin(), plan.items.end(), isOfRisk))
            continue;
        const bool stays = risk == Risk::protected_ || (risk == Risk::review && !options.includeReview);
        const char* const note = risk == Risk::protected_ ? " (never removed)"
                                 : stays                  ? " (left out without --include-review)"
                                                          : "";
        std::puts((colored(label(risk), colorOf(risk), terminal) + note).c_str());
        for (const PlanItem& item : plan.items) {
            if (!isOfRisk(item))
                continue;
            std::puts((padded(formatBytes(item.size), sizeColumns, Align::right) + "  " +
                       printable(item.path) + "\n" + std::string(sizeColumns + 2, ' ') +
                       faint(item.verdict.reason, terminal))
                          .c_str());
        }
    }
}

bool isConfirmed(const std::vector<DeletionRequest>& requests) {
    std::int64_t bytes = 0;
    for (const DeletionRequest& request : requests)
        bytes += request.size;
    const bool forGood = requests.front().removal == Removal::permanent;
    const std::string question = (forGood ? "Delete " : "Move ") + formatCount(std::ssize(requests)) +
                                 (requests.size() == 1 ? " item (" : " items (") + formatBytes(bytes) +
                                 (forGood ? ") permanently? [y/N] " : ") to the Trash? [y/N] ");
    std::fputs(question.c_str(), stderr);
    std::string answer;
    std::getline(std::cin, answer);
    return answer == "y" || answer == "Y" || answer == "yes";
}

Json failuresJson(const std::vector<DeletionFailure>& failures) {
    Json list = Json::array();
    for (const DeletionFailure& failure : failures)
        list.push_back({{"id", failure.id.text()},
                        {"path", jsonString(failure.path)},
                        {"reason", jsonString(failure.reason)}});
    return list;
}

/// Of a long row with one reason only the first are named.
void printFailures(const std::vector<DeletionFailure>& failures) {
    constexpr std::ptrdiff_t mostNamed = 10;
    for (auto first = failures.begin(); first != failures.end();) {
        const auto end = std::find_if(first, failures.end(), [&](const DeletionFailure& failure) {
            return failure.reason != first->reason;
        });
        const auto named = end - first > mostNamed ? first + mostNamed : end;
        std::for_each(first, named,
                      [](const DeletionFailure& failure) { fail(failure.path + ": " + failure.reason); });
        if (named != end)
            fail("And " + formatCount(end - named) + " more: " + first->reason);
        first = end;
    }
}

void printReport(const DeletionReport& report, const RemoveOptions& options) {
    if (options.json) {
        Json paths = Json::array();
        for (const std::string& path : report.deletedPaths)
            paths.push_back(jsonString(path));
        const Json document = {{"freed", report.freed},
                               {"movedToTrash", report.movedToTrash},
                               {"deletedPaths", std::move(paths)},
                               {"failures", failuresJson(report.failures)},
                               {"skippedProtected", failuresJson(report.skippedProtected)},
                               {"remarks", failuresJson(report.remarks)}};
        std::puts(writeJson(document, JsonLayout::indented).c_str());
        return;
    }
    std::puts(noticeOf(report).message.c_str());
    for (const auto* list : {&report.failures, &report.skippedProtected, &report.remarks})
        printFailures(*list);
}

void printPlanJson(const DeletionPlan& plan) {
    Json items = Json::array();
    for (const PlanItem& item : plan.items) {
        items.push_back(
            {{"path", jsonString(item.path)},
             {"name", jsonString(item.name)},
             {"size", item.size},
             {"removal", caseName(item.removal)},
             {"verdict", {{"risk", caseName(item.verdict.risk)}, {"reason", item.verdict.reason}}}});
    }
    const Json document = {{"id", plan.id.text()}, {"title", plan.title}, {"items", std::move(items)}};
    std::puts(writeJson(document, JsonLayout::indented).c_str());
}

ExitStatus statusOf(const DeletionPlan& plan, const DeletionReport& report) {
    if (report.deletedPaths.empty())
        return ExitStatus::failed;
    const bool all = report.deletedPaths.size() == plan.items.size() && report.failures.empty();
    return all ? ExitStatus::done : ExitStatus::partly;
}

bool prefersPermanent(const SystemTables& system) {
    FilePreferencesStore store(homeFolder() + "/" + std::string(system.preferencesFile));
    return Preferences(store).permanentDelete();
}

ExitStatus remove(RemoveOptions options, const SystemTables& system) {
    if (const auto refusal = refusalOfHome())
        return fail(*refusal);
    options.permanent = options.permanent || prefersPermanent(system);
    PathAssessor assessor(system);
    const DeletionPlan plan = planFor(options, assessor);
    if (options.dryRun && options.json) {
        printPlanJson(plan);
        return ExitStatus::done;
    }
    if (!options.json)
        printPlan(plan, options);
    if (options.dryRun)
        return ExitStatus::done;
    const auto requests =
        requestsOf(plan, options.includeReview ? ReviewItems::include : ReviewItems::leaveOut,
                   RemovalPreference::asPlanned);
    if (!requests.empty() && !options.yes && !isConfirmed(requests))
        return fail("Nothing was deleted.");
    DeletionEngine engine(assessor);
    const ExecutedRun run = [&] {
        const StopSignals signals;
        return engine.executor.execute(requests, signals.token());
    }();
    const bool isRecorded = engine.history.record(run);
    if (!isRecorded)
        fail("The history could not be written. It is completed at the next start.");
    printReport(run.report, options);
    const ExitStatus status = statusOf(plan, run.report);
    return status == ExitStatus::done && !isRecorded ? ExitStatus::partly : status;
}

} // namespace

void addRemoveCommand(CLI::App& app, Invocation& invocation) {
    const auto options = std::make_shared<RemoveOptions>();
    CLI::App* command = app.add_subcommand("remove", "Move files and folders to the Trash, or delete them");
    command->add_option("paths", options->paths, "Files and folders")->required()->type_name("PATH");
    command->add_flag("--permanent", options->permanent,
                      "Delete at once, with no way back (also the application's setting)");
    command->add_flag("--include-review", options->includeReview, "Also remove what needs a look first");
    command->add_flag("--dry-run", options->dryRun, "Show the plan and change nothing");
    command->add_flag("--yes", options->yes, "Don't ask");
    command->add_flag("--json", options->json, "Print the report (with --dry-run, the plan)");
    command->footer("What is protected is never removed. What was moved to the Trash comes back with "
                    "\"brimlet-cli restore\".\n\n"
                    "Examples:\n"
                    "  brimlet-cli remove --dry-run ~/Downloads/*.dmg\n"
                    "  brimlet-cli remove --permanent --yes ~/Downloads/*.iso");
    command->callback([options, &invocation] { invocation.status = remove(*options, *invocation.system); });
}

} // namespace brimlet
