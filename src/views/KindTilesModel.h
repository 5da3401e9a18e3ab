// The tiles of By File Type: every kind with its share of the scan, largest first. Main thread.
#pragma once

#include "app/AppState.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QtQml/qqmlregistration.h>
#include <vector>

namespace brimlet {

class KindTilesModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(brimlet::AppState* state READ state WRITE setState NOTIFY stateChanged REQUIRED)

public:
    enum Role { KindRole = Qt::UserRole, TitleRole, SymbolRole, ColorRole, SizeRole, CountRole };

    explicit KindTilesModel(QObject* parent = nullptr);

    AppState* state() const { return m_state; }
    void setState(AppState* state);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void stateChanged();

private:
    struct Tile {
        FileKind kind;
        std::int64_t size;
        std::int64_t count;
    };

    void readScan();

    QPointer<AppState> m_state;
    std::vector<Tile> m_tiles;
};

} // namespace brimlet
