#include "views/files/KindTilesModel.h"

#include "app/state/ScanState.h"
#include "app/Texts.h"
#include "views/nodes/NodeLook.h"

#include <algorithm>
#include <QColor>

namespace brimlet {

namespace {

std::int64_t entryOf(const std::map<FileKind, std::int64_t>& totals, FileKind kind) {
    const auto found = totals.find(kind);
    return found != totals.end() ? found->second : 0;
}

} // namespace

void KindTilesModel::watch(AppState& state) {
    connect(state.scan(), &ScanState::revisionChanged, this, &KindTilesModel::read);
}

void KindTilesModel::read() {
    std::vector<Tile> tiles;
    if (state()->scan()->hasScan()) {
        const ScanResult& scan = *state()->scan()->scan();
        for (const FileKind kind : allFileKinds())
            tiles.push_back({kind, entryOf(scan.kindTotals, kind), entryOf(scan.kindCounts, kind)});
        std::ranges::stable_sort(tiles, std::greater(), &Tile::size);
    }
    replaceRows(m_tiles, std::move(tiles), &Tile::kind);
}

int KindTilesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_tiles.size());
}

QVariant KindTilesModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const Tile& tile = m_tiles[static_cast<std::size_t>(index.row())];
    switch (role) {
    case KindRole:
        return static_cast<int>(tile.kind);
    case Qt::DisplayRole:
    case TitleRole:
        return translatedText(look(tile.kind).title);
    case SymbolRole:
        return shownText(look(tile.kind).symbol);
    case ColorRole:
        return QColor::fromRgb(look(tile.kind).color);
    case SizeRole:
        return static_cast<qint64>(tile.size);
    case CountRole:
        return static_cast<qint64>(tile.count);
    default:
        return {};
    }
}

QHash<int, QByteArray> KindTilesModel::roleNames() const {
    return {{KindRole, "kind"},   {TitleRole, "title"}, {SymbolRole, "symbol"},
            {ColorRole, "color"}, {SizeRole, "size"},   {CountRole, "fileCount"}};
}

} // namespace brimlet
