#include "views/junk/JunkModel.h"

#include "app/Formats.h"
#include "app/state/JunkState.h"
#include "app/Texts.h"
#include "core/Paths.h"
#include "junk/JunkCatalogue.h"
#include "platform/SystemOpener.h"
#include "tables/SystemTables.h"
#include "views/base/FolderLook.h"

#include <algorithm>
#include <map>
#include <QLocale>

namespace brimlet {

void JunkModel::watch(AppState& state) {
    connect(state.junk(), &JunkState::findingsChanged, this, &JunkModel::read);
}

void JunkModel::read() {
    m_totals.clear();
    m_selection.adopt(findings());
    for (const JunkFinding& finding : findings())
        m_totals.push_back(finding.total());
    std::vector<Row> now = rowsOfJunk();
    pointAtJunk(now);
    replaceRows(m_rows, std::move(now), &JunkModel::keyOf);
    emit emptyChanged();
    emit selectionChanged();
}

std::vector<JunkModel::Row> JunkModel::rowsOfJunk() const {
    std::vector<Row> rows;
    for (const JunkGroup group : state()->system().junk.groups) {
        bool first = true;
        for (std::size_t i = 0; i < findings().size(); ++i) {
            const JunkRule& rule = findings()[i].rule;
            if (rule.group != group)
                continue;
            if (std::exchange(first, false))
                rows.push_back({Kind::group, i, 0, std::string(look(group).title)});
            rows.push_back({Kind::rule, i, 0, std::string(rule.id)});
            if (isExpanded(findings()[i])) {
                const std::vector<Row> opened = openedRows(i);
                rows.insert(rows.end(), opened.begin(), opened.end());
            }
        }
    }
    return rows;
}

std::vector<JunkModel::Row> JunkModel::openedRows(std::size_t finding) const {
    const JunkFinding& opened = findings()[finding];
    std::vector<Row> rows;
    for (std::size_t i = 0; i < std::min(opened.items.size(), listedItems); ++i)
        rows.push_back({Kind::item, finding, i, opened.items[i].path});
    if (opened.items.size() > listedItems)
        rows.push_back({Kind::more, finding, 0, std::string(opened.rule.id)});
    return rows;
}

/// The list behind the rows has been replaced: each row finds its own again, or says nothing until it goes.
void JunkModel::pointAtJunk(const std::vector<Row>& now) {
    std::map<RowKey, const Row*> places;
    for (const Row& row : now)
        places.emplace(keyOf(row), &row);
    for (Row& row : m_rows) {
        const auto found = places.find(keyOf(row));
        row.finding = found != places.end() ? found->second->finding : gone;
        row.item = found != places.end() ? found->second->item : 0;
    }
}

const JunkModel::Row* JunkModel::rowAt(int row) const {
    return state() && row >= 0 && row < rowCount() && m_rows[static_cast<std::size_t>(row)].finding != gone
               ? &m_rows[static_cast<std::size_t>(row)]
               : nullptr;
}

void JunkModel::setExpanded(int row, bool open) {
    const Row* const rule = rowAt(row);
    if (rule == nullptr || rule->kind != Kind::rule || isExpanded(findingOf(*rule)) == open)
        return;
    const std::string_view id = findingOf(*rule).rule.id;
    const std::vector<Row> opened = openedRows(rule->finding);
    const auto below = m_rows.begin() + row + 1;
    const int last = row + static_cast<int>(opened.size());
    if (open) {
        m_expanded.emplace(id);
        if (!opened.empty()) {
            beginInsertRows({}, row + 1, last);
            m_rows.insert(below, opened.begin(), opened.end());
            endInsertRows();
        }
    } else {
        m_expanded.erase(std::string(id));
        if (!opened.empty()) {
            beginRemoveRows({}, row + 1, last);
            m_rows.erase(below, below + static_cast<std::ptrdiff_t>(opened.size()));
            endRemoveRows();
        }
    }
    emit dataChanged(index(row), index(row), {expanded});
}

void JunkModel::toggleTick(int row) {
    const Row* const ticked = rowAt(row);
    if (ticked == nullptr)
        return;
    if (ticked->kind == Kind::rule)
        m_selection.toggleAll(ticked->finding, findingOf(*ticked));
    else if (ticked->kind == Kind::item)
        m_selection.toggle(ticked->finding, itemOf(*ticked));
    else
        return;
    ticksChanged();
}

int JunkModel::stopFrom(int row, int step) const {
    const Row* at = rowAt(row);
    while (at != nullptr && at->kind != Kind::rule && at->kind != Kind::item)
        at = rowAt(row += step);
    return at == nullptr ? -1 : row;
}

void JunkModel::clearSelection() {
    m_selection.clear();
    ticksChanged();
}

void JunkModel::ticksChanged() {
    if (!m_rows.empty())
        emit dataChanged(index(0), index(rowCount() - 1), {tick});
    emit selectionChanged();
}

void JunkModel::reveal(int row) {
    const Row* const shown = rowAt(row);
    if (shown != nullptr && shown->kind == Kind::item)
        state()->opener().revealPath(itemOf(*shown).path);
}

void JunkModel::clean() {
    if (!state())
        return;
    std::vector<ChosenJunk> chosen;
    for (const JunkFinding& finding : findings()) {
        for (const JunkItem& item : finding.items) {
            if (m_selection.contains(item))
                chosen.push_back({item, finding.rule.removal});
        }
    }
    state()->junk()->proposePlan(std::move(chosen));
}

int JunkModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant JunkModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || !state())
        return {};
    const Row& row = m_rows[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole)
        role = title;
    if (role == kind) {
        static constexpr std::array<const char*, 4> names = {"group", "rule", "item", "more"};
        return QString::fromLatin1(names.at(static_cast<std::size_t>(row.kind)));
    }
    if (row.finding == gone)
        return {};
    switch (row.kind) {
    case Kind::group:
        return groupData(row, role);
    case Kind::rule:
        return ruleData(row, role);
    case Kind::item:
        return itemValue(row, role);
    case Kind::more:
        break;
    }
    const auto hidden = static_cast<qint64>(findingOf(row).items.size() - listedItems);
    return role == title ? tr("… and %1 more").arg(countText(hidden, QLocale())) : QVariant();
}

QVariant JunkModel::groupData(const Row& row, int role) const {
    const JunkGroupLook& group = look(findingOf(row).rule.group);
    switch (role) {
    case title:
        return translatedText(group.title);
    case symbol:
        return shownText(group.symbol);
    default:
        return {};
    }
}

QVariant JunkModel::ruleData(const Row& row, int role) const {
    const JunkFinding& finding = findingOf(row);
    switch (role) {
    case title:
        return translatedText(finding.rule.title);
    case detail:
        return translatedText(finding.rule.explanation);
    case size:
        return m_totals[row.finding];
    case count:
        return static_cast<qint64>(finding.items.size());
    case risk:
        return static_cast<int>(finding.rule.risk);
    case removal:
        return finding.rule.removal == Removal::trash ? tr("Moved to Trash") : tr("Deleted immediately");
    case expanded:
        return isExpanded(finding);
    case tick:
        return static_cast<int>(m_selection.state(row.finding, finding));
    default:
        return {};
    }
}

QVariant JunkModel::itemValue(const Row& row, int role) const {
    const JunkItem& item = itemOf(row);
    switch (role) {
    case title:
        return shownText(lastPathComponent(item.path));
    case size:
        return qint64{item.size};
    case directory:
        return looksLikeFolder(item.identity, lastPathComponent(item.path));
    case tick:
        return static_cast<int>(m_selection.contains(item) ? TickState::on : TickState::off);
    case path:
        return shownText(displayPath(item.path, state()->homeFolder()));
    default:
        return {};
    }
}

QHash<int, QByteArray> JunkModel::roleNames() const {
    return {{kind, "kind"}, {title, "title"}, {detail, "detail"},     {symbol, "symbol"},
            {size, "size"}, {count, "count"}, {risk, "risk"},         {removal, "removal"},
            {tick, "tick"}, {path, "path"},   {expanded, "expanded"}, {directory, "directory"}};
}

} // namespace brimlet
