#include "views/PlanModel.h"

#include "app/Texts.h"
#include "core/FileKind.h"
#include "core/Paths.h"

#include <algorithm>

namespace brimlet {

void PlanModel::watch(AppState& state) {
    connect(&state, &AppState::planChanged, this, &PlanModel::read);
    connect(&state, &AppState::permanentDeleteChanged, this, &PlanModel::explanationChanged);
}

void PlanModel::read() {
    emit explanationChanged();
    if (!state()->plan())
        return;
    beginResetModel();
    m_plan = *state()->plan();
    m_acceptedReview = false;
    buildRows();
    endResetModel();
    emit planChanged();
    emit acceptedReviewChanged();
}

void PlanModel::buildRows() {
    m_sections = {};
    std::array<std::vector<Row>, allRisks.size()> rows;
    for (std::size_t i = 0; i < m_plan.items.size(); ++i) {
        const Risk itemRisk = m_plan.items[i].verdict.risk;
        const auto position = static_cast<std::size_t>(itemRisk);
        Section& section = m_sections.at(position);
        ++section.count;
        section.size += m_plan.items[i].size;
        rows.at(position).push_back({itemRisk, i});
    }
    m_rows.clear();
    for (const Risk sectionRisk : allRisks) {
        const std::vector<Row>& items = rows.at(static_cast<std::size_t>(sectionRisk));
        if (items.empty())
            continue;
        m_rows.push_back({sectionRisk, heading});
        m_rows.insert(m_rows.end(), items.begin(), items.end());
    }
}

QString PlanModel::title() const {
    return shownText(m_plan.title);
}

QString PlanModel::explanation() const {
    if (permanently())
        return tr("These will be deleted permanently. They can't be recovered.");
    return tr("They'll go to the Trash (regenerable caches are deleted directly). You can undo this from "
              "History.");
}

QString PlanModel::deleteLabel() const {
    return permanently() ? tr("Delete Permanently") : tr("Delete");
}

QString PlanModel::reviewConsent() const {
    const qint64 items = section(Risk::review).count;
    if (items == 0)
        return {};
    return tr("I’ve reviewed the %1 item(s) marked **Review** and want to delete them").arg(items);
}

QString PlanModel::protectedNote() const {
    const qint64 items = section(Risk::protected_).count;
    return items == 0 ? QString() : tr("%1 protected item(s) won’t be touched.").arg(items);
}

void PlanModel::setAcceptedReview(bool accepted) {
    if (m_acceptedReview == accepted)
        return;
    m_acceptedReview = accepted;
    emit acceptedReviewChanged();
}

qint64 PlanModel::total() const {
    return section(Risk::safe).size + (m_acceptedReview ? section(Risk::review).size : 0);
}

bool PlanModel::canDelete() const {
    return section(Risk::safe).count > 0 || (m_acceptedReview && section(Risk::review).count > 0);
}

void PlanModel::cancel() {
    if (state())
        state()->setPlan(std::nullopt);
}

void PlanModel::confirm() {
    if (state() && state()->plan() && canDelete())
        state()->executePlan(m_plan, m_acceptedReview ? ReviewItems::include : ReviewItems::leaveOut);
}

int PlanModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant PlanModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row& row = m_rows[static_cast<std::size_t>(index.row())];
    if (role == isHeading)
        return row.item == heading;
    if (role == risk)
        return static_cast<int>(row.sectionRisk);
    return row.item == heading ? headingData(row.sectionRisk, role) : itemValue(m_plan.items[row.item], role);
}

QVariant PlanModel::headingData(Risk sectionRisk, int role) const {
    switch (role) {
    case Qt::DisplayRole:
    case name:
        return shownText(label(sectionRisk));
    case count:
        return section(sectionRisk).count;
    case size:
        return std::max<qint64>(0, section(sectionRisk).size);
    case reason:
    case path:
        return QString();
    case directory:
        return false;
    default:
        return {};
    }
}

QVariant PlanModel::itemValue(const PlanItem& item, int role) const {
    switch (role) {
    case Qt::DisplayRole:
    case name:
        return shownText(item.name);
    case count:
        return 1;
    case size:
        return qint64{item.size};
    case reason:
        return shownText(item.verdict.reason);
    case path:
        return shownText(displayPath(item.path, state() ? state()->homeFolder() : std::string()));
    case directory:
        return fileKindForName(item.name) == FileKind::other; // most junk is folders
    default:
        return {};
    }
}

QHash<int, QByteArray> PlanModel::roleNames() const {
    return {{isHeading, "isHeading"}, {risk, "risk"},     {count, "count"}, {size, "size"},
            {name, "name"},           {reason, "reason"}, {path, "path"},   {directory, "directory"}};
}

} // namespace brimlet
