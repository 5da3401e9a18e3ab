#include "views/quickclean/ReviewModel.h"

#include "app/state/JunkState.h"
#include "app/Texts.h"
#include "junk/JunkCatalogue.h"
#include "tables/SystemTables.h"

namespace brimlet {

void ReviewModel::watch(AppState& state) {
    connect(state.junk(), &JunkState::findingsChanged, this, &ReviewModel::read);
}

void ReviewModel::read() {
    std::vector<Row> rows;
    for (const JunkGroup group : state()->system().junk.groups) {
        Row row{group, 0, {}};
        for (const JunkFinding& finding : state()->junk()->findings()) {
            if (finding.rule.group != group)
                continue;
            const qint64 size = finding.total();
            row.total += size;
            row.findings.append(
                QVariant::fromValue(ReviewRule{shownText(finding.rule.id), translatedText(finding.rule.title),
                                               translatedText(finding.rule.explanation), size}));
        }
        if (!row.findings.isEmpty())
            rows.push_back(std::move(row));
    }
    replaceRows(m_rows, std::move(rows), &Row::group);
}

int ReviewModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant ReviewModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row& row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case title:
        return translatedText(look(row.group).title);
    case symbol:
        return shownText(look(row.group).symbol);
    case total:
        return row.total;
    case findings:
        return row.findings;
    default:
        return {};
    }
}

QHash<int, QByteArray> ReviewModel::roleNames() const {
    return {{title, "title"}, {symbol, "symbol"}, {total, "total"}, {findings, "findings"}};
}

} // namespace brimlet
