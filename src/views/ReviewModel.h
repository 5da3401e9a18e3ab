// The review of Quick Clean: one row for each heading that has findings, with the rules found under it.
#pragma once

#include "app/AppState.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QtQml/qqmlregistration.h>
#include <QVariantList>
#include <vector>

namespace brimlet {

/// A finding as a card shows it.
class ReviewRule {
    Q_GADGET
    Q_PROPERTY(QString ruleId MEMBER ruleId CONSTANT)
    Q_PROPERTY(QString title MEMBER title CONSTANT)
    Q_PROPERTY(QString explanation MEMBER explanation CONSTANT)
    Q_PROPERTY(double total MEMBER total CONSTANT)

public:
    QString ruleId;
    QString title;
    QString explanation;
    qint64 total = 0; ///< bytes
    bool operator==(const ReviewRule&) const = default;
};

class ReviewModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(brimlet::AppState* state READ state WRITE setState NOTIFY stateChanged REQUIRED)

public:
    /// `findings` holds ReviewRules, in the order of the junk list.
    enum Role { title = Qt::UserRole, symbol, total, findings };

    explicit ReviewModel(QObject* parent = nullptr);

    AppState* state() const { return m_state; }
    void setState(AppState* state);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void stateChanged();

private:
    struct Row {
        JunkGroup group;
        qint64 total = 0;
        QVariantList findings;
    };
    void readJunk();

    QPointer<AppState> m_state;
    std::vector<Row> m_rows;
};

} // namespace brimlet
