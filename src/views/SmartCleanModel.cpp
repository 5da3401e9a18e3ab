#include "views/SmartCleanModel.h"

#include "app/Formats.h"
#include "app/Texts.h"

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

SmartCleanModel::SmartCleanModel(QObject* parent)
    : QObject(parent) {}

void SmartCleanModel::setState(AppState* state) {
    if (m_state == state)
        return;
    if (m_state)
        m_state->disconnect(this);
    m_state = state;
    if (m_state) {
        connect(m_state, &AppState::smartPhaseChanged, this, &SmartCleanModel::phaseChanged);
        connect(m_state, &AppState::volumeChanged, this, &SmartCleanModel::volumeChanged);
        connect(m_state, &AppState::volumeChanged, this, &SmartCleanModel::reportChanged);
        connect(m_state, &AppState::smartSelectionChanged, this, &SmartCleanModel::selectionChanged);
        connect(m_state, &AppState::junkChanged, this, &SmartCleanModel::selectionChanged);
        connect(m_state, &AppState::lastReportChanged, this, &SmartCleanModel::reportChanged);
    }
    emit stateChanged();
    emit phaseChanged();
    emit volumeChanged();
    emit selectionChanged();
    emit reportChanged();
}

QStringList SmartCleanModel::steps() const {
    QStringList names;
    for (const StepState step : stepStates(m_state ? m_state->smartPhase() : SmartPhase::idle))
        names.append(stepName(step));
    return names;
}

qint64 SmartCleanModel::total() const {
    return volumeKnown() ? std::max<qint64>(0, m_state->volume()->total) : 0;
}

qint64 SmartCleanModel::available() const {
    return volumeKnown() ? std::max<qint64>(0, m_state->volume()->available) : 0;
}

qint64 SmartCleanModel::used() const {
    return std::max<qint64>(0, total() - available());
}

QString SmartCleanModel::freeSpaceSentence() const {
    if (!volumeKnown())
        return {};
    return tr("You have %1 free of %2. Brimlet only looks for files that macOS and your apps can recreate.")
        .arg(bytes(available()), bytes(total()));
}

QStringList SmartCleanModel::selection() const {
    QStringList ids;
    if (m_state) {
        for (const std::string& id : m_state->smartSelection())
            ids.append(shownText(id));
    }
    return ids;
}

QString SmartCleanModel::cleanedLine() const {
    if (!m_state || !m_state->lastReport())
        return {};
    const DeletionReport& report = *m_state->lastReport();
    return tr("%1 cleaned").arg(bytes(report.freed + report.movedToTrash));
}

QStringList SmartCleanModel::reportLines() const {
    QStringList lines;
    if (m_state && m_state->lastReport()) {
        const DeletionReport& report = *m_state->lastReport();
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
    if (!m_state)
        return;
    m_state->setSmartPhase(SmartPhase::scanning);
    m_state->startSmartScan();
}

void SmartCleanModel::showWhatElseUsesSpace() {
    if (!m_state)
        return;
    m_state->setSection(AppSection::overview);
    if (!m_state->hasScan())
        m_state->scanWholeDisk();
}

} // namespace brimlet
