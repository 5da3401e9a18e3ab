#include "views/HistoryModel.h"

#include "app/Texts.h"
#include "core/Paths.h"

#include <algorithm>
#include <QDateTime>
#include <QLocale>

namespace brimlet {

namespace {

/// From 1970-01-01 to 2001-01-01, in seconds.
constexpr double referenceDate = 978'307'200;

QString dateAndTime(double secondsSince2001) {
    const auto moment =
        QDateTime::fromMSecsSinceEpoch(static_cast<qint64>((secondsSince2001 + referenceDate) * 1000));
    return QLocale().toString(moment, QLocale::ShortFormat);
}

bool sameEntries(const std::vector<HistoryEntry>& left, const std::vector<HistoryEntry>& right) {
    return std::ranges::equal(left, right, {}, &HistoryEntry::id, &HistoryEntry::id);
}

} // namespace

void HistoryModel::watch(AppState& state) {
    connect(&state, &AppState::historyChanged, this, &HistoryModel::read);
}

void HistoryModel::read() {
    const std::vector<HistoryEntry> now = state()->history().entries();
    if (sameEntries(m_entries, now)) {
        m_entries = now;
        rolesChanged({method, restorable});
        return;
    }
    beginResetModel();
    m_entries = now;
    m_anchor = 0;
    std::set<Uuid> kept;
    for (const HistoryEntry& entry : m_entries) {
        if (m_selection.contains(entry.id))
            kept.insert(entry.id);
    }
    m_selection = std::move(kept);
    endResetModel();
    emit countChanged();
}

void HistoryModel::lookAgain() {
    rolesChanged({restorable});
}

void HistoryModel::rolesChanged(const QList<int>& roles) {
    if (!m_entries.empty())
        emit dataChanged(index(0), index(rowCount() - 1), roles);
}

void HistoryModel::restore(int row) {
    if (!isRow(row))
        return;
    const HistoryEntry entry = entryAt(row); // the list changes meanwhile
    if (state()->history().canRestore(entry))
        state()->restoreEntry(entry);
}

void HistoryModel::restoreSelected() {
    std::vector<HistoryEntry> chosen;
    for (const HistoryEntry& entry : m_entries) {
        if (m_selection.contains(entry.id))
            chosen.push_back(entry);
    }
    if (!chosen.empty())
        state()->restoreEntries(chosen);
}

void HistoryModel::select(int row, SelectionMode mode) {
    if (!isRow(row))
        return;
    const Uuid& id = entryAt(row).id;
    switch (mode) {
    case Replace:
        m_selection = {id};
        m_anchor = row;
        break;
    case Toggle:
        if (m_selection.erase(id) == 0)
            m_selection.insert(id);
        m_anchor = row;
        break;
    case Extend:
        m_selection.clear();
        m_anchor = std::min(m_anchor, rowCount() - 1);
        for (int i = std::min(m_anchor, row); i <= std::max(m_anchor, row); ++i)
            m_selection.insert(entryAt(i).id);
        break;
    }
    rolesChanged({selected});
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
        return state()->history().canRestore(entry);
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
