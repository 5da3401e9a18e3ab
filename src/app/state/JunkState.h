// The junk that was found, and its search. Main thread.
#pragma once

#include "app/background/PathUpdates.h"
#include "app/background/SearchedList.h"
#include "app/state/StatePart.h"
#include "junk/JunkFinder.h"
#include "junk/JunkPlan.h"

#include <functional>
#include <QtQml/qqmlregistration.h>
#include <vector>

namespace brimlet {

class RemovalState;
struct AppServices;

class JunkState : public StatePart, public PathList {
    Q_OBJECT
    QML_ANONYMOUS

    Q_PROPERTY(bool loading READ isLoading NOTIFY loadingChanged)

public:
    /// Everything outlives this object, but `work`, which goes first.
    JunkState(const AppServices& services, BackgroundWork& work, RemovalState& removal);

    const std::vector<JunkFinding>& findings() const {
        return m_findings;
    } ///< one may have lost all its items
    bool isLoading() const { return m_search.isLoading(); }

    /// Searches in the background and publishes what is found, as SearchedList tells.
    Q_INVOKABLE void load() { m_search.load(); }

    /// then  called once the findings are current
    void loadThen(std::function<void()> then) { m_search.load(std::move(then)); }

    void cancel() { m_search.cancel(); }

    /// Judges chosen items in the background and proposes the plan "Clean Junk".
    void proposePlan(std::vector<ChosenJunk> chosen);

    void forget(const SharedPaths& gone, std::function<void()> then) override;
    void takeBack(const SharedPaths& back, std::function<void()> then) override;

signals:
    void findingsChanged();
    void loadingChanged();

private:
    SearchedList<std::vector<JunkFinding>>::Owner owner();

    const AppServices& m_services;
    RemovalState& m_removal;
    std::vector<JunkFinding> m_findings;
    SearchedList<std::vector<JunkFinding>> m_search;
};

} // namespace brimlet
