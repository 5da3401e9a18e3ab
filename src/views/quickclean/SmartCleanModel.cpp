#include "views/quickclean/SmartCleanModel.h"

#include "app/Formats.h"
#include "app/state/JunkState.h"
#include "app/state/NavigationState.h"
#include "app/state/QuickCleanState.h"
#include "app/state/ScanState.h"
#include "app/Texts.h"
#include "tables/SystemTables.h"

#include <algorithm>
#include <QLocale>

namespace brimlet {

namespace {

QString bytes(std::int64_t size) {
    return bytesText(size, QLocale());
}

QString stepName(StepState state) {
    switch (state) {
    case StepState::ahead:
        return QStringLiteral("ahead");
    case StepState::present:
        return QStringLiteral("present");
    case StepState::finished:
        break;
    }
    return QStringLiteral("finished");
}

} // namespace

void SmartCleanModel::watch(AppState& state) {
    connect(state.quickClean(), &QuickCleanState::smartPhaseChanged, this, &SmartCleanModel::phaseChanged);
    connect(state.scan(), &ScanState::volumeChanged, this, &SmartCleanModel::volumeChanged);
    connect(state.scan(), &ScanState::volumeChanged, this, &SmartCleanModel::reportChanged);
    connect(state.quickClean(), &QuickCleanState::smartSelectionChanged, this,
            &SmartCleanModel::selectionChanged);
    connect(state.junk(), &JunkState::findingsChanged, this, &SmartCleanModel::selectionChanged);
    connect(state.quickClean(), &QuickCleanState::lastReportChanged, this, &SmartCleanModel::reportChanged);
}

void SmartCleanModel::read() {
    emit phaseChanged();
    emit volumeChanged();
    emit selectionChanged();
    emit reportChanged();
}

QStringList SmartCleanModel::steps() const {
    QStringList names;
    for (const StepState step : stepStates(state() ? state()->quickClean()->smartPhase() : SmartPhase::idle))
        names.append(stepName(step));
    return names;
}

qint64 SmartCleanModel::total() const {
    return volumeKnown() ? std::max<qint64>(0, state()->scan()->volume()->total) : 0;
}

qint64 SmartCleanModel::available() const {
    return volumeKnown() ? std::max<qint64>(0, state()->scan()->volume()->available) : 0;
}

qint64 SmartCleanModel::used() const {
    return std::max<qint64>(0, total() - available());
}

QString SmartCleanModel::freeSpaceSentence() const {
    if (!volumeKnown())
        return {};
    return translatedText(state()->system().words.spaceBeforeCleaning)
        .arg(bytes(available()), bytes(total()));
}

QStringList SmartCleanModel::selection() const {
    QStringList ids;
    if (state()) {
        for (const std::string& id : state()->quickClean()->smartSelection())
            ids.append(shownText(id));
    }
    return ids;
}

QString SmartCleanModel::cleanedLine() const {
    if (!state() || !state()->quickClean()->lastReport())
        return {};
    const DeletionReport& report = *state()->quickClean()->lastReport();
    return tr("%1 cleaned").arg(bytes(report.freed + report.movedToTrash));
}

QStringList SmartCleanModel::reportLines() const {
    QStringList lines;
    if (state() && state()->quickClean()->lastReport()) {
        const DeletionReport& report = *state()->quickClean()->lastReport();
        if (report.movedToTrash >= 1)
            lines.append(tr("%1 is in the Trash until you empty it.").arg(bytes(report.movedToTrash)));
        if (!report.failures.empty())
            lines.append(tr("%1 item(s) were in use or protected and were left untouched.")
                             .arg(report.failures.size()));
    }
    if (volumeKnown())
        lines.append(tr("You now have %1 free.").arg(bytes(available())));
    return lines;
}

void SmartCleanModel::startScan() {
    if (!state())
        return;
    state()->quickClean()->setSmartPhase(SmartPhase::scanning);
    state()->quickClean()->startSmartScan();
}

void SmartCleanModel::showWhatElseUsesSpace() {
    if (!state())
        return;
    state()->navigation()->setSection(AppSection::overview);
    if (!state()->scan()->hasScan())
        state()->scan()->scanWholeDisk();
}

} // namespace brimlet
