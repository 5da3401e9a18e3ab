#include "views/history/HistoryModel.h"

#include "app/Formats.h"
#include "app/state/RemovalState.h"
#include "app/Texts.h"
#include "core/Paths.h"

#include <algorithm>
#include <memory>
#include <QDateTime>
#include <QLocale>

namespace brimlet {

namespace {

/// From 1970-01-01 to 2001-01-01, in seconds.
constexpr double referenceDate = 978'307'200;

QString dateAndTime(double secondsSince2001) {
    return QLocale().toString(momentAt(secondsSince2001 + referenceDate), QLocale::ShortFormat);
}

} // namespace

void HistoryModel::watch(AppState& state) {
    connect(state.removal(), &RemovalState::historyChanged, this, &HistoryModel::read);
    connect(&state.removal()->removals(), &Removals::restorableChanged, this,
            [this] { rolesChanged({restorable}); });
}

void HistoryModel::read() {
    std::vector<HistoryEntry> now = state()->removal()->history();
    state()->removal()->lookForRestorable();
    std::set<Uuid> kept;
    for (const HistoryEntry& entry : now) {
        if (m_selection.contains(entry.id))
            kept.insert(entry.id);
    }
    m_selection = std::move(kept);
    replaceRows(m_entries, std::move(now), &HistoryEntry::id);
    emit countChanged();
}

void HistoryModel::lookAgain() {
    if (state())
        state()->removal()->lookForRestorable();
}

void HistoryModel::rolesChanged(const QList<int>& roles) {
    if (!m_entries.empty())
        emit dataChanged(index(0), index(rowCount() - 1), roles);
}

void HistoryModel::restore(int row) {
    if (isRow(row))
        state()->removal()->restoreEntry(entryAt(row));
}

void HistoryModel::restoreSelected() {
    std::vector<HistoryEntry> chosen;
    for (const HistoryEntry& entry : m_entries) {
        if (m_selection.contains(entry.id))
            chosen.push_back(entry);
    }
    if (!chosen.empty())
        state()->removal()->restoreEntries(
            std::make_shared<const std::vector<HistoryEntry>>(std::move(chosen)));
}

void HistoryModel::select(int row, SelectionMode mode) {
    if (!isRow(row))
        return;
    const Uuid& id = entryAt(row).id;
    switch (mode) {
    case Replace:
        m_selection = {id};
        m_anchor = id;
        break;
    case Toggle:
        if (m_selection.erase(id) == 0)
            m_selection.insert(id);
        m_anchor = id;
        break;
    case Extend:
        selectRange(anchorRow(), row);
        break;
    }
    rolesChanged({selected});
}

/// The row from which a range extends: the first one where it has left the list.
int HistoryModel::anchorRow() const {
    const auto found = std::ranges::find(m_entries, m_anchor, &HistoryEntry::id);
    return found != m_entries.end() ? static_cast<int>(found - m_entries.begin()) : 0;
}

void HistoryModel::selectRange(int from, int to) {
    m_selection.clear();
    for (int row = std::min(from, to); row <= std::max(from, to); ++row)
        m_selection.insert(entryAt(row).id);
}

void HistoryModel::selectAll() {
    for (const HistoryEntry& entry : m_entries)
        m_selection.insert(entry.id);
    rolesChanged({selected});
}

void HistoryModel::clearSelection() {
    m_selection.clear();
    rolesChanged({selected});
}

int HistoryModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

QVariant HistoryModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || !state())
        return {};
    const HistoryEntry& entry = entryAt(index.row());
    switch (role) {
    case date:
        return dateAndTime(entry.date);
    case Qt::DisplayRole:
    case name:
        return shownText(lastPathComponent(entry.originalPath));
    case place:
        return shownText(displayPath(entry.originalPath, state()->homeFolder()));
    case size:
        return std::max<qint64>(0, entry.size);
    case method:
        if (entry.restored)
            return tr("Restored");
        return entry.trashPath ? tr("Trash") : tr("Deleted");
    case restorable:
        return state()->removal()->removals().isRestorable(entry.id);
    case selected:
        return m_selection.contains(entry.id);
    default:
        return {};
    }
}

QHash<int, QByteArray> HistoryModel::roleNames() const {
    return {{date, "date"},        {name, "name"},     {place, "place"},
            {size, "size"},        {method, "method"}, {restorable, "restorable"},
            {selected, "selected"}};
}

} // namespace brimlet
