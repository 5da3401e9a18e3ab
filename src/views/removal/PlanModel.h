// The rows of the confirmation sheet: what is safe, what wants a look, and what stays, each under its
// heading.
//
// Without rows while the plan is put together and judged. Keeps the last plan while the sheet closes. Holds
// nothing for a single row, so that half a million open at once.
#pragma once

#include "app/state/PreferencesState.h"
#include "app/state/RemovalState.h"
#include "views/base/AppStateListModel.h"

#include <cstddef>

namespace brimlet {

class PlanModel : public brimlet::AppStateListModel { // spelt out for the QML tools
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QString title READ title NOTIFY planChanged)
    Q_PROPERTY(QString checkingNote READ checkingNote NOTIFY planChanged)
    Q_PROPERTY(QString explanation READ explanation NOTIFY explanationChanged)
    Q_PROPERTY(QString reviewConsent READ reviewConsent NOTIFY planChanged)
    Q_PROPERTY(QString protectedNote READ protectedNote NOTIFY planChanged)
    Q_PROPERTY(bool acceptedReview READ acceptedReview WRITE setAcceptedReview NOTIFY acceptedReviewChanged)
    Q_PROPERTY(double total READ total NOTIFY acceptedReviewChanged)
    Q_PROPERTY(bool canDelete READ canDelete NOTIFY acceptedReviewChanged)
    Q_PROPERTY(QString deleteLabel READ deleteLabel NOTIFY explanationChanged)

public:
    /// A heading has `risk`, `count` and `size`, an item all but `count`. `risk` is a Risk.
    enum Role { isHeading = Qt::UserRole, risk, count, size, name, reason, path, directory };

    using AppStateListModel::AppStateListModel;

    QString title() const;
    QString checkingNote() const; ///< what is being judged; empty when all is
    QString explanation() const;
    QString reviewConsent() const; ///< markdown; empty where nothing wants a look
    QString protectedNote() const; ///< empty where nothing is protected
    bool acceptedReview() const { return m_acceptedReview; }
    void setAcceptedReview(bool accepted);
    qint64 total() const; ///< bytes of what would be deleted now
    bool canDelete() const;
    QString deleteLabel() const;

    Q_INVOKABLE void cancel();
    Q_INVOKABLE void confirm();

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void planChanged();
    void explanationChanged();
    void acceptedReviewChanged();

protected:
    void watch(AppState& state) override;
    void read() override;

private:
    using Section = JudgedPlan::Section;

    /// Where a row lies: in a section, which begins with its heading.
    struct Place {
        Risk risk = Risk::safe;
        std::size_t item = heading; ///< position in the plan
    };
    static constexpr std::size_t heading = static_cast<std::size_t>(-1);

    const Section& section(Risk wanted) const;
    bool permanently() const { return state() && state()->preferences()->permanentDelete(); }
    Place placeOf(int row) const;
    QVariant headingData(Risk risk, int role) const;
    QVariant itemValue(const PlanItem& item, int role) const;

    Proposal m_proposal;
    bool m_acceptedReview = false;
};

} // namespace brimlet
