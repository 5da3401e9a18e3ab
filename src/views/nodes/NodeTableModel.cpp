#include "views/nodes/NodeTableModel.h"

#include "app/Formats.h"
#include "app/state/ScanState.h"
#include "app/Texts.h"
#include "core/Paths.h"
#include "core/TextFold.h"
#include "tables/SystemTables.h"
#include "views/nodes/NodeLook.h"

#include <algorithm>
#include <QColor>
#include <utility>

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
    connect(state.scan(), &ScanState::revisionChanged, this, &NodeTableModel::read);
}

void NodeTableModel::listFiles(std::shared_ptr<const ScanResult> scan, const FileFilter& filter) {
    if (std::exchange(m_filter, filter) != filter)
        m_startsOver = true;
    if (m_folder != nullptr || m_columns->scan() != scan) {
        m_folder = nullptr;
        std::vector<FileNode*> files = scan->files;
        startList(std::make_shared<NodeColumns>(std::move(scan), std::move(files)));
    }
    // Once for each list and each change of the tree, not at every letter of a filter.
    if (m_readAt != std::pair(m_columns, state()->scan()->revision()))
        startReading(m_columns);
    else
        requestRows();
}

void NodeTableModel::listChildren(std::shared_ptr<const ScanResult> scan, const FileNode& folder) {
    auto columns = std::make_shared<NodeColumns>(
        std::move(scan), std::vector<FileNode*>(folder.children.begin(), folder.children.end()));
    if (m_folder != &folder || m_columns->scan() != columns->scan()) {
        m_folder = &folder;
        startList(columns);
    }
    startReading(std::move(columns));
}

void NodeTableModel::listNothing() {
    m_folder = nullptr;
    startList(std::make_shared<NodeColumns>(nullptr, std::vector<FileNode*>()));
}

void NodeTableModel::startList(std::shared_ptr<NodeColumns> columns) {
    m_isReady = false;
    m_startsOver = true;
    m_wanted = nullptr;
    m_readAt = {};
    m_slices.drop();
    m_worker.drop();
    takeRows(std::make_shared<NodeRows>());
    m_columns = std::move(columns);
    m_selection.reset(m_columns);
}

void NodeTableModel::startReading(std::shared_ptr<NodeColumns> columns) {
    m_readAt = {columns, state()->scan()->revision()};
    NodeBits deleted(columns->count());
    auto reading = std::make_shared<Reading>(Reading{std::move(columns), std::move(deleted)});
    m_slices.drop();
    m_slices.run([reading] { return readSome(*reading); },
                 [this, reading] {
                     takeReading(*reading);
                     requestRows();
                 });
}

bool NodeTableModel::readSome(Reading& reading) {
    constexpr std::size_t stepNodes = 2'000;
    NodeColumns& columns = *reading.columns;
    const std::size_t end = std::min(reading.next + stepNodes, columns.count());
    columns.readSizes(end);
    for (; reading.next < end; ++reading.next) {
        const FileNode& node = *columns.node(reading.next);
        if (reading.folder != node.parent) {
            reading.folder = node.parent;
            reading.isFolderGone = reading.folder != nullptr && isGone(*reading.folder);
        }
        if (node.deleted || reading.isFolderGone)
            reading.deleted.set(reading.next);
    }
    return reading.next < columns.count();
}

void NodeTableModel::takeReading(Reading& reading) {
    m_deleted = std::make_shared<const NodeBits>(std::move(reading.deleted));
    if (m_columns != reading.columns) {
        m_columns = reading.columns;
        m_selection.setColumns(m_columns);
    }
}

void NodeTableModel::requestRows() {
    if (m_slices.isBusy())
        return;
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
    if (std::exchange(m_startsOver, false))
        emit startedOver();
    chooseWanted();
}

void NodeTableModel::chooseNode(const FileNode* node) {
    m_wanted = node;
    if (m_isReady)
        chooseWanted();
}

void NodeTableModel::chooseWanted() {
    const FileNode* wanted = std::exchange(m_wanted, nullptr);
    if (wanted == nullptr)
        return;
    const auto found = std::ranges::find_if(
        m_rows->order, [&](std::uint32_t position) { return m_columns->node(position) == wanted; });
    if (found == m_rows->order.end())
        return;
    const auto row = static_cast<int>(found - m_rows->order.begin());
    goTo(row, false);
    emit rowWanted(row);
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
        return state() ? QVariant(static_cast<int>(state()->verdict(node.path()).risk)) : QVariant();
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
                   ? shownText(displayPath(node.parent->path(), state()->homeFolder()))
                   : QString();
    case KindTextRole:
        return kindText(node);
    case KindColorRole:
        return QColor::fromRgb(look(node.kind).color);
    case CategoryRole:
        return translatedText(look(node.bucket).title);
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
    m_startsOver = true;
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

QString NodeTableModel::explanation(int row, const QString& cell) const {
    const FileNode* node = nodeAt(row);
    if (node == nullptr || !state())
        return {};
    if (cell == QLatin1String("risk"))
        return shownText(state()->verdict(node->path()).reason);
    if (cell != QLatin1String("name"))
        return {};
    const QString path = shownText(normalisedPath(node->path()));
    return node->unreadable ? path + u'\n' + translatedText(state()->system().words.unreadableFolder) : path;
}

FileNode* NodeTableModel::nodeAt(int row) const {
    return row >= 0 && row < count() ? m_columns->node(m_rows->order[static_cast<std::size_t>(row)])
                                     : nullptr;
}

std::vector<FileNode*> NodeTableModel::listedNodes() const {
    std::vector<FileNode*> nodes;
    nodes.reserve(m_rows->order.size());
    m_rows->listed.forEach([&](std::size_t position) { nodes.push_back(m_columns->node(position)); });
    return nodes;
}

} // namespace brimlet
