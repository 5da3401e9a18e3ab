// The junk list item by item: headings, rules that open, their items, and what is chosen of them.
//
// A rule shows at most `listedItems` rows, so the rows stay few however much was found; what isn't listed is
// chosen through its rule's box.
#pragma once

#include "app/state/JunkState.h"
#include "junk/JunkSelection.h"
#include "views/base/AppStateListModel.h"

#include <set>
#include <vector>

namespace brimlet {

class JunkModel : public brimlet::AppStateListModel { // spelt out for the QML tools
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY emptyChanged)
    Q_PROPERTY(double selectedCount READ selectedCount NOTIFY selectionChanged)
    Q_PROPERTY(double selectedSize READ selectedSize NOTIFY selectionChanged)

public:
    /// `kind` is "group", "rule", "item" or "more"; a row fills the roles that its kind needs.
    /// `tick` is a TickState, `risk` a Risk.
    enum Role {
        kind = Qt::UserRole,
        title,
        detail,
        symbol,
        size,
        count,
        risk,
        removal,
        expanded,
        tick,
        path,
        directory,
    };

    /// How many items of a rule are listed.
    static constexpr std::size_t listedItems = 300;

    using AppStateListModel::AppStateListModel;

    bool isEmpty() const { return m_rows.empty(); }
    qint64 selectedCount() const { return static_cast<qint64>(m_selection.count()); }
    qint64 selectedSize() const { return m_selection.size(); }

    /// A row that can't be opened or ticked, or doesn't exist, is ignored.
    Q_INVOKABLE void setExpanded(int row, bool open);
    Q_INVOKABLE void toggleTick(int row);
    Q_INVOKABLE void reveal(int row);
    Q_INVOKABLE void clearSelection();

    /// The nearest rule or item from `row` on, in steps of 1 or -1; -1 where there is none.
    Q_INVOKABLE int stopFrom(int row, int step) const;

    /// Proposes a plan for what is chosen, in the order of the list.
    Q_INVOKABLE void clean();

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void emptyChanged();
    void selectionChanged();

protected:
    void watch(AppState& state) override;
    void read() override;

private:
    enum class Kind : std::uint8_t { group, rule, item, more };
    struct Row {
        Kind kind = Kind::group;
        std::size_t finding = gone; // the first one under a group's heading
        std::size_t item = 0;
        std::string id; // of the group, the rule or the item; unique within its kind
    };
    static constexpr std::size_t gone = static_cast<std::size_t>(-1);
    using RowKey = std::pair<Kind, std::string>;

    const std::vector<JunkFinding>& findings() const { return state()->junk()->findings(); }
    const Row* rowAt(int row) const;
    const JunkFinding& findingOf(const Row& row) const { return findings()[row.finding]; }
    const JunkItem& itemOf(const Row& row) const { return findingOf(row).items[row.item]; }
    bool isExpanded(const JunkFinding& finding) const { return m_expanded.contains(finding.rule.id); }

    static RowKey keyOf(const Row& row) { return {row.kind, row.id}; }
    std::vector<Row> rowsOfJunk() const;
    std::vector<Row> openedRows(std::size_t finding) const;
    void pointAtJunk(const std::vector<Row>& now);
    void ticksChanged();
    QVariant groupData(const Row& row, int role) const;
    QVariant ruleData(const Row& row, int role) const;
    QVariant itemValue(const Row& row, int role) const;

    std::vector<Row> m_rows;
    std::vector<qint64> m_totals; // by finding
    JunkSelection m_selection;
    std::set<std::string, std::less<>> m_expanded; // ids of the open rules
};

} // namespace brimlet
