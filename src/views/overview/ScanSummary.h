// The first figures of the finished scan, for the Overview.
#pragma once

#include "app/state/ScanState.h"
#include "views/base/AppStateReader.h"
#include "views/components/Segment.h"

#include <QVariantList>

namespace brimlet {

class ScanSummary : public brimlet::AppStateReader { // spelt out for the QML tools
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(double total MEMBER m_total NOTIFY changed)
    Q_PROPERTY(double files MEMBER m_files NOTIFY changed)
    Q_PROPERTY(double folders MEMBER m_folders NOTIFY changed)
    Q_PROPERTY(double unreadable MEMBER m_unreadable NOTIFY changed)
    Q_PROPERTY(double seconds MEMBER m_seconds NOTIFY changed)
    Q_PROPERTY(QString place MEMBER m_place NOTIFY changed)          ///< the scanned folder, as shown
    Q_PROPERTY(QVariantList buckets MEMBER m_buckets NOTIFY changed) ///< Segment, largest first, none empty

protected:
    void watch(AppState& state) override {
        connect(state.scan(), &ScanState::revisionChanged, this, &ScanSummary::read);
    }
    void read() override;

private:
    double m_total = 0;
    double m_files = 0;
    double m_folders = 0;
    double m_unreadable = 0;
    double m_seconds = 0;
    QString m_place;
    QVariantList m_buckets;
};

} // namespace brimlet
