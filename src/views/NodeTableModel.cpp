#include "views/NodeTableModel.h"

#include "app/Formats.h"
#include "core/Localized.h"
#include "core/Paths.h"
#include "core/TextFold.h"
#include "views/NodeLook.h"

#include <algorithm>
#include <QColor>

namespace brimlet {

namespace {

/// Lists up to this long are sorted at once; a longer one could hold up a frame.
constexpr std::size_t immediateCount = 1'000;

double nowInSeconds() {
    return static_cast<double>(QDateTime::currentMSecsSinceEpoch()) / 1'000;
}

} // namespace

NodeTableModel::NodeTableModel(QObject* parent)
    : AppStateListModel(parent)
    , m_columns(std::make_shared<NodeColumns>(nullptr, std::vector<FileNode*>()))
    , m_worker(
          [this](const RowRequest&, std::shared_ptr<const NodeRows> rows) { showRows(std::move(rows)); }) {
    m_selection.reset(m_columns);
}

NodeTableModel::~NodeTableModel() = default;

void NodeTableModel::watch(AppState& state) {
    connect(&state, &AppState::revisionChanged, this, &NodeTableModel::read);
}

void NodeTableModel::listFiles(std::shared_ptr<const ScanResult> scan, const FileFilter& filter) {
    m_filter = filter;
    if (m_folder != nullptr || m_columns->scan() != scan) {
        m_folder = nullptr;
        std::vector<FileNode*> files = scan->files;
        startList(std::make_shared<NodeColumns>(std::move(scan), std::move(files)));
    }
    readDeleted();
    requestRows();
}

void NodeTableModel::listChildren(std::shared_ptr<const ScanResult> scan, const FileNode& folder) {
    auto columns = std::make_shared<NodeColumns>(
        std::move(scan), std::vector<FileNode*>(folder.children.begin(), folder.children.end()));
    columns->readSizes();
    if (m_folder == &folder && m_columns->scan() == columns->scan()) {
        m_columns = columns;
        m_selection.setColumns(columns);
    } else {
        m_folder = &folder;
        startList(std::move(columns));
    }
    readDeleted();
    requestRows();
}

void NodeTableModel::listNothing() {
    m_folder = nullptr;
    m_worker.drop();
    startList(std::make_shared<NodeColumns>(nullptr, std::vector<FileNode*>()));
}

void NodeTableModel::startList(std::shared_ptr<NodeColumns> columns) {
    m_isReady = false;
    m_deletedOf = {};
    takeRows(std::make_shared<NodeRows>());
    m_columns = std::move(columns);
    m_selection.reset(m_columns);
}

/// Once for each list and each change of the tree, not at every letter of a filter.
void NodeTableModel::readDeleted() {
    const std::pair now(m_columns, state()->revision());
    if (std::exchange(m_deletedOf, now) == now)
        return;
    NodeBits deleted(m_columns->count());
    const FileNode* folder = nullptr; // the files of one folder follow each other
    bool isFolderGone = false;
    for (std::size_t i = 0; i < m_columns->count(); ++i) {
        const FileNode& node = *m_columns->node(i);
        if (folder != node.parent) {
            folder = node.parent;
            isFolderGone = folder != nullptr && isGone(*folder);
        }
        if (node.deleted || isFolderGone)
            deleted.set(i);
    }
    m_deleted = std::make_shared<const NodeBits>(std::move(deleted));
}

void NodeTableModel::requestRows() {
    RowRequest request{m_columns, m_filter, m_sort, m_deleted, nowInSeconds()};
    if (m_columns->count() > immediateCount) {
        m_worker.submit(std::move(request));
        return;
    }
    m_worker.drop();
    showRows(computeRows(request));
}

void NodeTableModel::showRows(std::shared_ptr<const NodeRows> rows) {
    m_isReady = true;
    takeRows(std::move(rows));
}

void NodeTableModel::takeRows(std::shared_ptr<const NodeRows> rows) {
    beginResetModel();
    m_rows = std::move(rows);
    m_selection.setRows(m_rows);
    endResetModel();
    emit rowsChanged();
    emit selectionChanged();
}

int NodeTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QHash<int, QByteArray> NodeTableModel::roleNames() const {
    return {{NameRole, "name"},
            {FolderRole, "folder"},
            {PathRole, "path"},
            {SizeRole, "size"},
            {SizeFractionRole, "sizeFraction"},
            {ShareRole, "share"},
            {KindTextRole, "kindText"},
            {KindColorRole, "kindColor"},
            {CategoryRole, "category"},
            {CategoryColorRole, "categoryColor"},
            {ModifiedRole, "modified"},
            {LastOpenedRole, "lastOpened"},
            {FileCountRole, "fileCount"},
            {RiskRole, "risk"},
            {RiskReasonRole, "riskReason"},
            {DirectoryRole, "directory"},
            {UnreadableRole, "unreadable"},
            {SelectedRole, "selected"}};
}

QVariant NodeTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= count())
        return {};
    const auto row = static_cast<std::size_t>(index.row());
    const std::size_t position = m_rows->order[row];
    const FileNode& node = *m_columns->node(position);
    switch (role) {
    case Qt::DisplayRole:
    case NameRole:
        return displayName(node);
    case SizeRole:
    case SizeFractionRole:
    case ShareRole:
    case FileCountRole:
        return figureData(position, role);
    case RiskRole:
    case RiskReasonRole:
        return riskData(node, role);
    case SelectedRole:
        return m_selection.isSelected(row);
    case DirectoryRole:
        return static_cast<bool>(node.isDirectory);
    case UnreadableRole:
        return static_cast<bool>(node.unreadable);
    default:
        return textData(node, role);
    }
}

QVariant NodeTableModel::textData(const FileNode& node, int role) const {
    switch (role) {
    case FolderRole:
        return node.parent != nullptr && state()
                   ? displayText(displayPath(node.parent->path(), state()->homeFolder()))
                   : QString();
    case PathRole:
        return displayText(normalisedPath(node.path()));
    case KindTextRole:
        return kindText(node);
    case KindColorRole:
        return QColor::fromRgb(look(node.kind).color);
    case CategoryRole:
        return displayText(localized(look(node.bucket).title));
    case CategoryColorRole:
        return QColor::fromRgb(look(node.bucket).color);
    case ModifiedRole:
        return dateText(node.modified, QLocale());
    case LastOpenedRole:
        return relativeTime(std::max(node.accessed, node.modified));
    default:
        return {};
    }
}

QVariant NodeTableModel::figureData(std::size_t position, int role) const {
    const qint64 size = m_columns->size(position);
    const bool isDirectory = m_columns->node(position)->isDirectory;
    switch (role) {
    case SizeRole:
        return size;
    case SizeFractionRole:
        return m_rows->largestSize > 0 ? static_cast<double>(size) / static_cast<double>(m_rows->largestSize)
                                       : 1.0;
    case ShareRole:
        return percentText(size, m_folder != nullptr ? m_folder->size : m_rows->totalSize, QLocale());
    default:
        return isDirectory ? countText(m_columns->fileCount(position), QLocale()) : QStringLiteral("—");
    }
}

QVariant NodeTableModel::riskData(const FileNode& node, int role) const {
    if (!state())
        return {};
    const SafetyVerdict verdict = state()->verdict(node.path());
    return role == RiskRole ? QVariant(static_cast<int>(verdict.risk))
                            : QVariant(displayText(verdict.reason));
}

int NodeTableModel::currentRow() const {
    const std::optional<std::size_t> row = m_selection.currentRow();
    return row ? static_cast<int>(*row) : -1;
}

void NodeTableModel::sortBy(int column) {
    if (column < 0 || column >= Risk)
        return;
    const auto wanted = static_cast<NodeColumn>(column);
    const bool beginsAscending =
        wanted == NodeColumn::name || wanted == NodeColumn::kind || wanted == NodeColumn::category;
    SortDirection direction = beginsAscending ? SortDirection::ascending : SortDirection::descending;
    if (wanted == m_sort.column)
        direction = sortDescending() ? SortDirection::ascending : SortDirection::descending;
    m_sort = {wanted, direction};
    emit sortChanged();
    requestRows();
}

void NodeTableModel::click(int row, int modifiers) {
    if (row < 0 || row >= count())
        return;
    SelectionMode mode = SelectionMode::replace;
    if ((modifiers & Qt::ShiftModifier) != 0)
        mode = SelectionMode::extend;
    else if ((modifiers & (Qt::ControlModifier | Qt::MetaModifier)) != 0)
        mode = SelectionMode::toggle;
    m_selection.choose(static_cast<std::size_t>(row), mode);
    changeSelection();
}

void NodeTableModel::goTo(int row, bool extend) {
    if (count() > 0)
        click(std::clamp(row, 0, count() - 1), extend ? Qt::ShiftModifier : Qt::NoModifier);
}

void NodeTableModel::selectAll() {
    m_selection.selectAll();
    changeSelection();
}

void NodeTableModel::clearSelection() {
    m_selection.clear();
    changeSelection();
}

void NodeTableModel::changeSelection() {
    if (count() > 0)
        emit dataChanged(index(0), index(count() - 1), {SelectedRole});
    emit selectionChanged();
}

bool NodeTableModel::isSelected(int row) const {
    return row >= 0 && row < count() && m_selection.isSelected(static_cast<std::size_t>(row));
}

int NodeTableModel::firstSelectedRow() const {
    const std::optional<std::size_t> row = m_selection.firstSelectedRow();
    return row ? static_cast<int>(*row) : -1;
}

int NodeTableModel::rowBeginningWith(const QString& text) const {
    const std::string beginning = foldedText(text.toStdString());
    const int first = std::max(currentRow(), 0);
    for (int step = 0; step < count(); ++step) {
        const int row = (first + step) % count();
        if (m_columns->nameBeginsWith(m_rows->order[static_cast<std::size_t>(row)], beginning))
            return row;
    }
    return -1;
}

FileNode* NodeTableModel::nodeAt(int row) const {
    return row >= 0 && row < count() ? m_columns->node(m_rows->order[static_cast<std::size_t>(row)])
                                     : nullptr;
}

std::vector<FileNode*> NodeTableModel::selectedNodes() const {
    std::vector<FileNode*> nodes;
    for (const std::uint32_t position : m_selection.selectedInOrder())
        nodes.push_back(m_columns->node(position));
    return nodes;
}

std::vector<FileNode*> NodeTableModel::listedNodes() const {
    std::vector<FileNode*> nodes;
    nodes.reserve(m_rows->order.size());
    m_rows->listed.forEach([&](std::size_t position) { nodes.push_back(m_columns->node(position)); });
    return nodes;
}

} // namespace brimlet
