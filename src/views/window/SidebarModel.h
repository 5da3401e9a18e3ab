// The rows of the sidebar: the sections in their groups.
#pragma once

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace brimlet {

class SidebarModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT

public:
    /// `startsGroup` marks the first row of each group; `heading` is the group's translated name there, empty
    /// for a group without one.
    enum Role { sectionId = Qt::UserRole, title, symbol, startsGroup, heading };

    explicit SidebarModel(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    Q_INVOKABLE int rowOf(const QString& section) const; ///< -1 where there is none
    Q_INVOKABLE QString sectionAt(int row) const;        ///< empty where there is none
    Q_INVOKABLE QString titleOf(const QString& section) const;
    Q_INVOKABLE QString symbolOf(const QString& section) const;
};

} // namespace brimlet
