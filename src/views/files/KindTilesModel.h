// The tiles of By File Type: every kind with its share of the scan, largest first. Main thread.
#pragma once

#include "core/FileKind.h"
#include "views/base/AppStateListModel.h"

#include <vector>

namespace brimlet {

class KindTilesModel : public brimlet::AppStateListModel { // spelt out for the QML tools
    Q_OBJECT
    QML_ELEMENT

public:
    enum Role { KindRole = Qt::UserRole, TitleRole, SymbolRole, ColorRole, SizeRole, CountRole };

    using AppStateListModel::AppStateListModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

protected:
    void watch(AppState& state) override;
    void read() override;

private:
    struct Tile {
        FileKind kind;
        std::int64_t size;
        std::int64_t count;
    };

    std::vector<Tile> m_tiles;
};

} // namespace brimlet
