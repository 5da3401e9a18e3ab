// The review of Quick Clean: one row for each heading that has findings, with the rules found under it.
#pragma once

#include "junk/JunkFinder.h"
#include "views/base/AppStateListModel.h"

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

class ReviewModel : public brimlet::AppStateListModel { // spelt out for the QML tools
    Q_OBJECT
    QML_ELEMENT

public:
    /// `findings` holds ReviewRules, in the order of the junk list.
    enum Role { title = Qt::UserRole, symbol, total, findings };

    using AppStateListModel::AppStateListModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

protected:
    void watch(AppState& state) override;
    void read() override;

private:
    struct Row {
        JunkGroup group;
        qint64 total = 0;
        QVariantList findings;
    };

    std::vector<Row> m_rows;
};

} // namespace brimlet
