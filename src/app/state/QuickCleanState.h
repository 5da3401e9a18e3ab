// Quick Clean's way from the scan to the report. Main thread.
#pragma once

#include "app/background/Removals.h"
#include "app/background/StageClock.h"
#include "app/state/StatePart.h"
#include "junk/QuickClean.h"

#include <cstdint>
#include <functional>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace brimlet {

class JunkState;
class RemovalState;
struct AppServices;

class QuickCleanState : public StatePart {
    Q_OBJECT
    QML_ANONYMOUS

    Q_PROPERTY(QString smartPhase READ smartPhaseRaw WRITE setSmartPhaseRaw NOTIFY smartPhaseChanged)

public:
    QuickCleanState(const AppServices& services, JunkState& junk, RemovalState& removal);

    SmartPhase smartPhase() const { return m_smartPhase; }
    void setSmartPhase(SmartPhase phase);
    QString smartPhaseRaw() const;
    void setSmartPhaseRaw(const QString& raw); ///< a text that names no phase is ignored

    const RuleSelection& smartSelection() const { return m_smartSelection; }
    std::int64_t smartSelectedSize() const;
    Q_INVOKABLE void setRuleSelected(const QString& ruleId, bool selected);

    /// Of the newest run; null before the first.
    const DeletionReport* lastReport() const { return m_lastRun ? &m_lastRun->report : nullptr; }

    /// From `scanning`, which the caller has set, to `review`; takes at least 1.6 seconds.
    Q_INVOKABLE void startSmartScan();

    /// From `review` to `done`, by way of `cleaning` for at least 1.2 seconds. Without anything to remove, or
    /// while a clean runs, nothing happens.
    Q_INVOKABLE void startSmartClean();

signals:
    void smartPhaseChanged();
    void smartSelectionChanged();
    void lastReportChanged();

private:
    void finishSmartClean(const FinishedRemovalPtr& outcome);
    void callAtEarliest(StageClock::Time earliest, std::function<void()> action);

    JunkState& m_junk;
    RemovalState& m_removal;
    StageClock& m_clock;
    SmartPhase m_smartPhase = SmartPhase::idle;
    RuleSelection m_smartSelection;
    int m_smartRun = 0; ///< the newest scan
    FinishedRemovalPtr m_lastRun;
};

} // namespace brimlet
