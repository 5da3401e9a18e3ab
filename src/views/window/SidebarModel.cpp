#include "views/window/SidebarModel.h"

#include "app/state/AppSection.h"
#include "app/Texts.h"

#include <algorithm>
#include <array>

namespace brimlet {

namespace {

struct Row {
    AppSection section;
    std::string_view group; ///< English heading, key of the translation look-up
};

constexpr std::array<Row, 13> rows = {{
    {AppSection::smartClean, "Simple"},
    {AppSection::overview, "Analyze"},
    {AppSection::explorer, "Analyze"},
    {AppSection::types, "Analyze"},
    {AppSection::large, "Analyze"},
    {AppSection::systemData, "Analyze"},
    {AppSection::apps, "Apps"},
    {AppSection::leftovers, "Apps"},
    {AppSection::loginItems, "Apps"},
    {AppSection::junk, "Clean Up"},
    {AppSection::developer, "Clean Up"},
    {AppSection::duplicates, "Clean Up"},
    {AppSection::history, ""},
}};

bool startsGroupAt(int row) {
    const auto at = static_cast<std::size_t>(row);
    return at == 0 || rows.at(at).group != rows.at(at - 1).group;
}

QString translated(std::string_view english) {
    return english.empty() ? QString() : translatedText(english);
}

QString plain(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

SidebarModel::SidebarModel(QObject* parent)
    : QAbstractListModel(parent) {}

int SidebarModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows.size());
}

QVariant SidebarModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row& row = rows.at(static_cast<std::size_t>(index.row()));
    const AppSectionLook& section = look(row.section);
    switch (role) {
    case sectionId:
        return plain(section.rawValue);
    case Qt::DisplayRole:
    case title:
        return translated(section.title);
    case symbol:
        return plain(section.symbol);
    case startsGroup:
        return startsGroupAt(index.row());
    case heading:
        return startsGroupAt(index.row()) ? translated(row.group) : QString();
    default:
        return {};
    }
}

QHash<int, QByteArray> SidebarModel::roleNames() const {
    return {{sectionId, "sectionId"},
            {title, "title"},
            {symbol, "symbol"},
            {startsGroup, "startsGroup"},
            {heading, "heading"}};
}

int SidebarModel::rowOf(const QString& section) const {
    const auto wanted = sectionFromRaw(section.toStdString());
    const auto* row = std::find_if(rows.begin(), rows.end(),
                                   [&](const Row& candidate) { return wanted == candidate.section; });
    return row == rows.end() ? -1 : static_cast<int>(row - rows.begin());
}

QString SidebarModel::sectionAt(int row) const {
    return index(row).data(sectionId).toString();
}

QString SidebarModel::titleOf(const QString& section) const {
    return index(rowOf(section)).data(title).toString();
}

QString SidebarModel::symbolOf(const QString& section) const {
    return index(rowOf(section)).data(symbol).toString();
}

} // namespace brimlet
