#include "views/removal/PlanModel.h"

#include "app/Formats.h"
#include "app/state/PreferencesState.h"
#include "app/state/RemovalState.h"
#include "app/Texts.h"
#include "core/Paths.h"
#include "views/base/FolderLook.h"

#include <algorithm>
#include <QLocale>

namespace brimlet {

void PlanModel::watch(AppState& state) {
    connect(state.removal(), &RemovalState::planChanged, this, &PlanModel::read);
    connect(state.preferences(), &PreferencesState::permanentDeleteChanged, this,
            &PlanModel::explanationChanged);
}

void PlanModel::read() {
    emit explanationChanged();
    if (!state()->removal()->proposal())
        return;
    beginResetModel();
    m_proposal = *state()->removal()->proposal();
    m_acceptedReview = false;
    endResetModel();
    emit planChanged();
    emit acceptedReviewChanged();
}

const PlanModel::Section& PlanModel::section(Risk wanted) const {
    static const Section none;
    return m_proposal.judged ? m_proposal.judged->section(wanted) : none;
}

PlanModel::Place PlanModel::placeOf(int row) const {
    auto left = static_cast<std::size_t>(row);
    for (const Risk wanted : allRisks) {
        const std::vector<std::uint32_t>& items = section(wanted).items;
        if (items.empty())
            continue;
        if (left == 0)
            return {wanted, heading};
        if (left <= items.size())
            return {wanted, items[left - 1]};
        left -= items.size() + 1;
    }
    return {};
}

QString PlanModel::title() const {
    return shownText(m_proposal.title);
}

QString PlanModel::checkingNote() const {
    if (m_proposal.judged)
        return {};
    return tr("Checking %1 item(s) · %2…")
        .arg(countText(m_proposal.count, QLocale()), bytesText(m_proposal.size, QLocale()));
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
    const auto items = static_cast<qint64>(section(Risk::review).items.size());
    if (items == 0)
        return {};
    return tr("I’ve reviewed the %1 item(s) marked **Review** and want to delete them").arg(items);
}

QString PlanModel::protectedNote() const {
    const auto items = static_cast<qint64>(section(Risk::protected_).items.size());
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
    return !section(Risk::safe).items.empty() || (m_acceptedReview && !section(Risk::review).items.empty());
}

void PlanModel::cancel() {
    if (state())
        state()->removal()->cancelPlan();
}

void PlanModel::confirm() {
    if (state() && state()->removal()->plan() && canDelete())
        state()->removal()->executePlan({m_proposal.judged, &m_proposal.judged->plan},
                                        m_acceptedReview ? ReviewItems::include : ReviewItems::leaveOut);
}

int PlanModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid())
        return 0;
    std::size_t rows = 0;
    for (const Risk wanted : allRisks)
        rows += section(wanted).items.empty() ? 0 : section(wanted).items.size() + 1;
    return static_cast<int>(rows);
}

QVariant PlanModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Place place = placeOf(index.row());
    if (role == isHeading)
        return place.item == heading;
    if (role == risk)
        return static_cast<int>(place.risk);
    return place.item == heading ? headingData(place.risk, role)
                                 : itemValue(m_proposal.judged->plan.items[place.item], role);
}

QVariant PlanModel::headingData(Risk sectionRisk, int role) const {
    switch (role) {
    case Qt::DisplayRole:
    case name:
        return shownText(label(sectionRisk));
    case count:
        return static_cast<qint64>(section(sectionRisk).items.size());
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
        return looksLikeFolder(item.identity, item.name);
    default:
        return {};
    }
}

QHash<int, QByteArray> PlanModel::roleNames() const {
    return {{isHeading, "isHeading"}, {risk, "risk"},     {count, "count"}, {size, "size"},
            {name, "name"},           {reason, "reason"}, {path, "path"},   {directory, "directory"}};
}

} // namespace brimlet
